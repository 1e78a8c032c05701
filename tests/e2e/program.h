#pragma once

#include "shell/menuplugininterface.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QPluginLoader>
#include <QSqlDatabase>
#include <QtTest>

#include <memory>

/// The program around the plug-in: one start of it, from loading to unloading.
class Program : public QObject {
    Q_OBJECT

public:
    explicit Program(const QSqlDatabase &db, const QVariantMap &options = {})
        : m_loader(QStringLiteral(VIANDA_PLUGIN))
    {
        auto *plugin = qobject_cast<MenuPluginInterface *>(m_loader.instance());
        if (!plugin)
            qFatal("%s", qPrintable(m_loader.errorString()));
        plugin->setDatabase(db);
        plugin->setOptions(options);
        // By name, as a host that shares no class with the plug-in must. clang-format would spoil the normalized form.
        // clang-format off
        connect(m_loader.instance(), SIGNAL(sigSetCurrentWidget(QWidget*)), this, SLOT(show(QWidget*)));
        // clang-format on
        m_menu.reset(plugin->menu());
    }

    ~Program() override
    {
        m_page.reset();
        m_menu.reset();
        m_loader.unload();
    }

    Q_DISABLE_COPY(Program)

    QWidget *open(const QString &title)
    {
        entry(title)->trigger();
        return m_page.get();
    }
    bool canOpen(const QString &title) { return entry(title)->isEnabled(); }

public slots:
    void show(QWidget *page)
    {
        m_page.reset(page);
        m_page->show();
    }

private:
    QAction *entry(const QString &title)
    {
        const QList<QAction *> actions = m_menu->actions();
        for (QAction *action : actions) {
            if (action->text() == title)
                return action;
        }
        qFatal("no entry %s", qPrintable(title));
    }

    QPluginLoader m_loader;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QWidget> m_page;
};

/// A child widget by its object name; the test ends without it.
template<typename Widget> Widget *child(const QWidget *parent, const char *name)
{
    auto *widget = parent->findChild<Widget *>(QLatin1String(name));
    if (!widget)
        qFatal("no widget %s", name);
    return widget;
}

/// A user's click on a button, which must be there to be clicked.
inline void click(const QWidget *parent, const char *name)
{
    // A button that has just come to light gets its place from the layout first.
    QCoreApplication::processEvents();
    auto *button = child<QAbstractButton>(parent, name);
    if (!button->isVisible() || !button->isEnabled())
        qFatal("%s is hidden or disabled", name);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// The card of a service slot (its row on the board) on a day of the shown week.
inline QWidget *card(const QWidget *board, int row, const QDate &day)
{
    QList<QWidget *> cards;
    const QList<QWidget *> widgets = board->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->inherits("DayMenuWidget"))
            cards.append(widget);
    }
    return cards.value(row * 7 + day.dayOfWeek() - 1);
}
