#pragma once

#include <QObject>
#include <QWidget>

/// Waits for windows to be painted, as a user does, and lets the event loop do its pending work in between.
class PaintWatch : public QObject {
    Q_OBJECT

public:
    /// Counts the paint events of the application while it lives.
    PaintWatch();

    /// Shows the window and returns when it has been painted for the first time and nothing is left to paint.
    void show(QWidget *window);
    /// Returns when nothing is left to paint, and what was to be deleted later is gone.
    void settle();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int m_paints = 0;
};

/// A child widget by its object name; ends the program when there is none.
template<typename Widget> Widget *child(QWidget *page, const char *name)
{
    auto *widget = page->findChild<Widget *>(QLatin1String(name));
    if (!widget)
        qFatal("the page has no %s", name);
    return widget;
}

/// Makes the program run without a display unless the environment names a platform. Before the application is made.
void runWithoutDisplay();
