#pragma once

#include <QString>
#include <QVariantMap>
#include <QtPlugin>

class QMenu;
class QSqlDatabase;

/// What a host drives in every plug-in of its sidebar. The order of the virtual operations is the binary contract with
/// hosts built apart from the module: never reorder them, never insert one.
///
/// Order of calls: `setDatabase` and `setOptions` (`setDebugLevel` before it, if its log line is wanted), then `menu`.
/// `moduleName` and `version` may be called at any time. All calls come on the GUI thread.
class MenuPluginInterface {
public:
    virtual ~MenuPluginInterface() = default;

    /// Hands over the host's open connection. The module copies the handle; it never opens, closes or names it.
    virtual void setDatabase(const QSqlDatabase &database) = 0;
    /// Sets the level of the shell's log lines: 0 silent, 1 switches and options, 2 filters as well.
    virtual void setDebugLevel(quint8 level) = 0;
    /// Sets the session from the keys "adminID" (unsigned, default 0), "debugLevel" (0 to 255, the low 8 bits count,
    /// default 0), "readOnly" (bool, default false) and "companyName" (text, default empty).
    virtual void setOptions(const QVariantMap &options) = 0;
    /// The sidebar menu, made at the first call and the same at each later one. It is the host's from then on.
    virtual QMenu *menu() = 0;
    /// Name of the module, a fixed word.
    virtual QString moduleName() = 0;
    /// Version of the module, three numbers with points.
    virtual QString version() = 0;
};

Q_DECLARE_INTERFACE(MenuPluginInterface, "sk.norvik-it.MenuPluginInterface")
