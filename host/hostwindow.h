#pragma once

#include <QMainWindow>
#include <QMap>
#include <QPointer>
#include <QVariantMap>

#include <memory>

class QAction;
class QFrame;
class QLabel;
class QMenu;
class QScrollArea;
class QSqlDatabase;
class QVBoxLayout;
class Sidebar;

/// The program's window: sidebar, the page of the chosen entry, messages above it, session values in the status bar. It
/// drives the plug-in's root object in the order that the plug-in needs, owns its menu and the page on show, and
/// disposes of the page that another one replaces.
class HostWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit HostWindow(QWidget *parent = nullptr);
    ~HostWindow() override;

    /// Takes a plug-in: hands over the handle, the debug level and the options, listens for pages, and shows its menu.
    /// `root` answers to `MenuPluginInterface`, stays the caller's and must outlive the window. The keys of `options`
    /// are those of `MenuPluginInterface::setOptions`; the status bar shows them. Once only.
    void usePlugin(QObject *root, const QSqlDatabase &db, const QVariantMap &options);
    /// Says in the status bar where the database is, or that there is none.
    void showDatabase(const QString &description, bool open);
    /// Adds a message above the page that stays until the user closes it; plain text, in Slovak.
    void warn(const QString &message);

    /// The entry of a name: its text in any case, or "menu", "foods", "suppliers", "settings" for the first to the
    /// fourth; null without one.
    QAction *entryNamed(const QString &name) const;
    /// The page on show; null before the first.
    QWidget *page() const { return m_page; }
    /// "VER: 1.3.1" and so on as a table of markup, with Slovak names for the known keys.
    static QString versionTable(const QMap<QString, QString> &records);

public slots:
    /// Shows a page, which is the window's from then on, instead of the present one, which goes.
    void showPage(QWidget *page);
    /// Shows the plug-in's version records in a box.
    void showAbout();

private:
    void makeStatusBar();

    Sidebar *m_sidebar;
    QVBoxLayout *m_messages;
    /// Scrolls, so that a page may need more room than the window has.
    QScrollArea *m_pages;
    /// Stands where the first page will.
    QPointer<QLabel> m_welcome;
    QLabel *m_administrator;
    QLabel *m_company;
    QLabel *m_access;
    QLabel *m_database;
    QObject *m_plugin = nullptr;
    std::unique_ptr<QMenu> m_menu;
    QPointer<QWidget> m_page;
};
