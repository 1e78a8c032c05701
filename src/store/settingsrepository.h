#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

class SqlOperation;

/// The module's access to the host's key-value table `vars`, in two layers.
///
/// The typed layer (load... and set...) follows the other repositories: a failure is one critical line and a box titled
/// "Chyba databázy". Its writers rely on `vars` having exactly two columns, name and value.
///
/// The generic layer (variable...) shows no box. A failure is two critical lines, "SettingsRepository::OPERATION - SQL
/// ERROR:" and the database's words, or for the writers one line "SettingsRepository::variableSet ERROR:" with them.
/// Keys and patterns go into the statements as they are, so they must be constants of the program.
class SettingsRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit SettingsRepository(QSqlDatabase db, QObject *parent = nullptr);

public slots:
    /// `via_activeDays`: the day code, see store/activedays.h. 2222222 when missing or on failure.
    int loadCheckState();
    bool setCheckState(int checkstate);
    /// `via_shownWeeks`: number of weeks of menu shown ahead. 4 when missing or on failure.
    int loadShownWeeks();
    bool setShownWeeks(int shownWeeks);
    /// `via_orderLimit`: 0 one piece a day, 1 one piece a service slot, 2 no restriction. 0 when missing or on failure.
    int loadOrderLimit();
    bool setOrderLimit(int orderLimit);
    /// Sets the portion limit of every menu item that has one to 0, and gives the number of rows changed. On failure
    /// logs and gives -1, without a box.
    int removeAllOrderableLimits();

    /// The stored text of a key, or `defaultValue` when there is no such row or the statement failed. A stored empty
    /// text is a value.
    QVariant variableGet(QString key, QVariant defaultValue = QVariant());
    /// All keys that begin with `pattern`, in which % and _ keep their meaning in SQL.
    QVariantMap variableGetMultiple(QString pattern);
    /// Those of the named keys that exist; without a query for an empty list.
    QVariantMap variableGetMultiple(QStringList list);
    /// Writes one key, new or not.
    bool variableSet(QString key, QVariant value);
    /// Writes all entries in key order, each for itself: a failing one is logged and the rest go on. True only if all
    /// were written, also for an empty map.
    bool variableSetMultiple(QVariantMap data);
    /// Deletes one key, or with `asPattern` all that begin with it. True only if something was deleted: a key that does
    /// not exist gives false although nothing went wrong.
    bool variableDel(QString key, bool asPattern = false);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;
    int loadNumber(const QString &key, int defaultValue, const char *tag) const;
    bool setNumber(const QString &statement, const QString &placeholder, int value, const char *tag) const;
    QVariantMap loadMap(const QString &statement) const;

    QSqlDatabase m_db;
};
