#pragma once

#include <QFrame>
#include <QList>
#include <QPointer>

class QAction;
class QLabel;
class QMenu;
class QToolButton;
class QVBoxLayout;

/// The sidebar: a menu as a column of icon buttons under its title. The buttons follow their actions: text, icon in its
/// states, tool tip, enabled and visible, also entries that come and go later. A press triggers the action. The button
/// of the entry whose page is shown is checked; which one that is the window says.
class Sidebar : public QFrame {
    Q_OBJECT

public:
    explicit Sidebar(QWidget *parent = nullptr);

    /// Shows the entries of a menu, which stays the caller's and must not be destroyed before the sidebar or another
    /// `setMenu`; null empties the sidebar.
    void setMenu(QMenu *menu);
    /// Marks the entry with this text as the one whose page is shown; no entry when there is none of that text.
    void setCurrentEntry(const QString &text);
    /// The buttons from the top, in the order of the entries; each has the text of its entry.
    QList<QToolButton *> buttons() const { return m_buttons; }

signals:
    /// The button below the entries.
    void aboutWanted();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void rebuild();
    QToolButton *makeButton(QAction *action);
    void markCurrent();

    QPointer<QMenu> m_menu;
    QLabel *m_title;
    QVBoxLayout *m_entries;
    QToolButton *m_about;
    QList<QToolButton *> m_buttons;
    QString m_current;
};
