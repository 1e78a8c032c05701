#include "store/settingsrepository.h"

#include "store/activedays.h"
#include "store/sqloperation.h"

#include <QDebug>

namespace {

constexpr int defaultShownWeeks = 4;
constexpr int defaultOrderLimit = 0;

/// Tells of a failed reader or deleter of the generic layer, the fixed text in one line and the database's words in the
/// next. Gives true if there was nothing to tell.
bool succeededOrLogged(const SqlOperation &operation, const char *text)
{
    if (!operation.failed())
        return true;
    qCritical("%s", text);
    qCritical("%s", operation.error().text().toLocal8Bit().constData());
    return false;
}

bool prepareEntry(SqlOperation &operation)
{
    return operation.prepare(QStringLiteral("INSERT INTO vars (name, value) VALUES(:name, :value) ON DUPLICATE KEY "
                                            "UPDATE value=VALUES(value);"));
}

bool writeEntry(SqlOperation &operation, const QString &key, const QVariant &value)
{
    if (operation.execute({{QStringLiteral(":name"), key}, {QStringLiteral(":value"), value}}))
        return true;
    qCritical() << "SettingsRepository::variableSet ERROR:" << operation.error().text();
    return false;
}

} // namespace

SettingsRepository::SettingsRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

SqlOperation SettingsRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

int SettingsRepository::loadNumber(const QString &key, int defaultValue, const char *tag) const
{
    // The whole table is read and compared here: the key's case counts, whatever collation the host's table has.
    SqlOperation reading = operation(tag, tr("Nepodarilo sa načítať nastavenie!"));
    reading.run(QStringLiteral("SELECT name, value FROM vars"));
    QSqlQuery &row = reading.query();
    while (row.next()) {
        if (row.value(0).toString() == key)
            return row.value(1).toInt();
    }
    reading.succeededOrReported();
    return defaultValue;
}

bool SettingsRepository::setNumber(const QString &statement, const QString &placeholder, int value,
                                   const char *tag) const
{
    return operation(tag, tr("Nepodarilo sa uložiť nastavenie!")).change(statement, {{placeholder, value}});
}

int SettingsRepository::loadCheckState()
{
    return loadNumber(QStringLiteral("via_activeDays"), ActiveDays::defaultCode, "SettingsRepository(loadCheckState)");
}

bool SettingsRepository::setCheckState(int checkstate)
{
    return setNumber(QStringLiteral("INSERT INTO vars VALUES ('via_activeDays', :checkstate) ON DUPLICATE KEY UPDATE "
                                    "value=:checkstate "),
                     QStringLiteral(":checkstate"), checkstate, "SettingsRepository(setCheckState)");
}

int SettingsRepository::loadShownWeeks()
{
    return loadNumber(QStringLiteral("via_shownWeeks"), defaultShownWeeks, "SettingsRepository(loadShownWeeks)");
}

bool SettingsRepository::setShownWeeks(int shownWeeks)
{
    return setNumber(QStringLiteral("INSERT INTO vars VALUES ('via_shownWeeks', :shownWeeks) ON DUPLICATE KEY UPDATE "
                                    "value=:shownWeeks "),
                     QStringLiteral(":shownWeeks"), shownWeeks, "SettingsRepository(setShownWeeks)");
}

int SettingsRepository::loadOrderLimit()
{
    return loadNumber(QStringLiteral("via_orderLimit"), defaultOrderLimit, "SettingsRepository(loadOrderLimit)");
}

bool SettingsRepository::setOrderLimit(int orderLimit)
{
    // The tag lacks the verb; log watchers know it so.
    return setNumber(QStringLiteral("INSERT INTO vars VALUES ('via_orderLimit', :orderLimit) ON DUPLICATE KEY UPDATE "
                                    "value=:orderLimit "),
                     QStringLiteral(":orderLimit"), orderLimit, "SettingsRepository(orderLimit)");
}

int SettingsRepository::removeAllOrderableLimits()
{
    SqlOperation operation(m_db, "SettingsRepository(removeAllOrderableLimits)");
    operation.run(QStringLiteral("UPDATE via_orderables SET `limit`=0 WHERE `limit` > 0"));
    return operation.succeededOrReported() ? operation.query().numRowsAffected() : -1;
}

QVariant SettingsRepository::variableGet(QString key, QVariant defaultValue)
{
    SqlOperation operation(m_db);
    operation.run(QStringLiteral("SELECT value FROM vars WHERE name='%1' LIMIT 1").arg(key));
    if (operation.query().next())
        return operation.query().value(0);
    succeededOrLogged(operation, "SettingsRepository::variableGet - SQL ERROR:");
    return defaultValue;
}

QVariantMap SettingsRepository::loadMap(const QString &statement) const
{
    SqlOperation operation(m_db);
    operation.run(statement);
    QVariantMap values;
    while (operation.query().next())
        values.insert(operation.query().value(0).toString(), operation.query().value(1));
    succeededOrLogged(operation, "SettingsRepository::variableGetMultiple - SQL ERROR:");
    return values;
}

QVariantMap SettingsRepository::variableGetMultiple(QString pattern)
{
    return loadMap(QStringLiteral("SELECT name, value FROM vars WHERE name LIKE '%1%'").arg(pattern));
}

QVariantMap SettingsRepository::variableGetMultiple(QStringList list)
{
    if (list.isEmpty())
        return {};
    const QString names = QLatin1Char('\'') + list.join(QStringLiteral("','")) + QLatin1Char('\'');
    return loadMap(QStringLiteral("SELECT name, value FROM vars WHERE name IN(%1)").arg(names));
}

bool SettingsRepository::variableSet(QString key, QVariant value)
{
    SqlOperation operation(m_db);
    prepareEntry(operation);
    return writeEntry(operation, key, value);
}

bool SettingsRepository::variableSetMultiple(QVariantMap data)
{
    if (data.isEmpty())
        return true;
    SqlOperation operation(m_db);
    prepareEntry(operation);
    int written = 0;
    for (auto entry = data.cbegin(); entry != data.cend(); ++entry) {
        if (writeEntry(operation, entry.key(), entry.value()))
            ++written;
    }
    return written == data.size();
}

bool SettingsRepository::variableDel(QString key, bool asPattern)
{
    const QString statement = asPattern ? QStringLiteral("DELETE FROM vars WHERE name LIKE '%1%'")
                                        : QStringLiteral("DELETE FROM vars WHERE name='%1'");
    SqlOperation operation(m_db);
    operation.run(statement.arg(key));
    return succeededOrLogged(operation, "SettingsRepository::variableDel - SQL ERROR:")
        && operation.query().numRowsAffected() > 0;
}
