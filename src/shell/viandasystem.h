#pragma once

#include "shell/menuplugininterface.h"
#include "shell/verinfointerface.h"

#include <QObject>
#include <QSqlDatabase>

class MenuWidget;
class QAction;

/// The root object of the plug-in: it builds the sidebar menu, takes the session values from the host, makes a page
/// when an entry is triggered and offers it to the host, and keeps the last filter of the menu board across runs.
///
/// Pages and the menu belong to the host from the moment it gets them; the host disposes of the page it replaces. The
/// shell tells the user nothing: a closed database shows itself in the pages.
class Viandasystem : public QObject, public MenuPluginInterface, public VerInfoInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.norvik-it.ViandaInterface" FILE "viandasystem.json")
    Q_INTERFACES(MenuPluginInterface VerInfoInterface)

public:
    /// Reads the saved filters; no page and no menu exist yet.
    explicit Viandasystem(QObject *parent = nullptr);
    ~Viandasystem() override;

    // The order of these declarations is part of the binary contract with the host.
    void setDatabase(const QSqlDatabase &database) override;
    void setDebugLevel(quint8 level) override;
    QMenu *menu() override;
    QString moduleName() override;
    QString version() override;
    void setOptions(const QVariantMap &options) override;
    QMap<QString, QString> versionInfo() override;

signals:
    /// Offers a newly made page, without a parent, to the host, which owns it from then on.
    void sigSetCurrentWidget(QWidget *widget);

public slots:
    /// Makes the page of the triggered entry and offers it; a sender that is none of the four entries has no page.
    void setCurrentWidget();
    /// Saves the filter of a module at once, together with those of all others.
    void setFilter(QString module, QVariantMap data);

private:
    QAction *addEntry(const QString &title, const QString &imageBase);
    QWidget *makePage(const QAction *entry);
    QWidget *makeMenuBoard();

    QSqlDatabase m_db;
    /// Becomes 0, no restriction, when the host's options do not name an administrator.
    quint32 m_adminID = 1;
    quint32 m_debugLevel = 0;
    QMenu *m_menu = nullptr;
    QAction *m_actionMenu = nullptr;
    QAction *m_actionFoods = nullptr;
    QAction *m_actionSuppliers = nullptr;
    QAction *m_actionSettings = nullptr;
    /// The last board made. Dangles once the host has disposed of that page: it is only ever written.
    MenuWidget *m_menuWidget = nullptr;
    QVariantMap m_filters;
};
