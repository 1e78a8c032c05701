#include "store/orderablerepository.h"

#include "store/sqloperation.h"

#include <QDebug>

namespace {

/// Without limit and locked, which most statements do not read.
OrderableRecord recordOf(const QSqlQuery &row)
{
    OrderableRecord record;
    record.orderableID = row.value(QStringLiteral("orderableID")).toUInt();
    record.foodID = row.value(QStringLiteral("foodID")).toUInt();
    record.bid = row.value(QStringLiteral("bid")).toUInt();
    record.segmentID = row.value(QStringLiteral("segmentID")).toUInt();
    record.date = row.value(QStringLiteral("date")).toDate();
    record.position = row.value(QStringLiteral("position")).toUInt();
    record.price = row.value(QStringLiteral("price")).toDouble();
    return record;
}

SqlValues slotValues(QDate date, uint segmentID, uint bid)
{
    return {{QStringLiteral(":date"), date}, {QStringLiteral(":segmentID"), segmentID}, {QStringLiteral(":bid"), bid}};
}

} // namespace

OrderableRepository::OrderableRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

SqlOperation OrderableRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

OrderableRecord OrderableRepository::loadOrderable(uint orderableID)
{
    OrderableRecord record;
    operation("OrderableRepository(loading)", tr("Nepodarilo sa načítať objednávateľnú položku!"))
        .load(QStringLiteral("SELECT orderableID, foodID, segmentID, date, position, price, bid FROM via_orderables "
                             "WHERE orderableID='%1'")
                  .arg(orderableID),
              [&record](const QSqlQuery &row) { record = recordOf(row); });
    return record;
}

QList<OrderableRecord> OrderableRepository::loadOrderablesByDate(QDate date, uint bid)
{
    QList<OrderableRecord> records;
    operation("OrderableRepository(loading by Date)", tr("Nepodarilo sa načítať objednávateľnú položku!"))
        .load(QStringLiteral("SELECT orderableID, foodID, segmentID, date, position, price, bid, locked FROM "
                             "via_orderables WHERE date=:date AND (bid=:bid OR bid IS NULL)"),
              {{QStringLiteral(":date"), date.toString(QStringLiteral("yyyy-MM-dd"))}, {QStringLiteral(":bid"), bid}},
              [&records](const QSqlQuery &row) {
                  OrderableRecord record = recordOf(row);
                  record.locked = row.value(QStringLiteral("locked")).toUInt();
                  records.append(record);
              });
    return records;
}

int OrderableRepository::count(const QString &sql, const char *tag)
{
    int rows = 0;
    operation(tag, tr("Nepodarilo sa načítať objednávateľnú položku!")).load(sql, [&rows](const QSqlQuery &row) {
        rows = row.value(0).toInt();
    });
    return rows;
}

int OrderableRepository::numOfSegments()
{
    return count(QStringLiteral("SELECT COUNT(*) FROM via_segments"), "OrderableRepository(numOfSegments)");
}

int OrderableRepository::numOfTypes()
{
    return count(QStringLiteral("SELECT COUNT(*) FROM via_types"), "OrderableRepository(numOfTypes)");
}

QList<uint> OrderableRepository::loadFoodIDs(QDate date, uint segmentID)
{
    QList<uint> foodIDs;
    operation("OrderableRepository(loading all)", tr("Nepodarilo sa načítať objednávateľné položky!"))
        .load(QStringLiteral("SELECT orderableID, foodID, segmentID, date, position, price, bid FROM via_orderables "
                             "WHERE date=:date AND segmentID=:segmentID ORDER BY position DESC"),
              {{QStringLiteral(":date"), date}, {QStringLiteral(":segmentID"), segmentID}},
              [&foodIDs](const QSqlQuery &row) { foodIDs.append(row.value(QStringLiteral("foodID")).toUInt()); });
    return foodIDs;
}

bool OrderableRepository::orderableExists(OrderableRecord orderable)
{
    // True for every input on purpose: the import skips what "exists", and imported rows never reach a menu. The foods
    // are read all the same, so that a lost database is told of.
    loadFoodIDs(orderable.date, orderable.segmentID);
    return true;
}

bool OrderableRepository::addOrderable(OrderableRecord orderable)
{
    const QString sql = orderable.bid == 0
        ? QStringLiteral("INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, `limit`) VALUES "
                         "(:foodID, NULL, :segmentID, :date, :position, :price, :limit)")
        : QStringLiteral("INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, `limit`) VALUES "
                         "(:foodID, :bid, :segmentID, :date, :position, :price, :limit)");
    SqlValues values = slotValues(orderable.date, orderable.segmentID, orderable.bid);
    values += {{QStringLiteral(":foodID"), orderable.foodID},
               {QStringLiteral(":position"), orderable.position},
               {QStringLiteral(":price"), orderable.price},
               {QStringLiteral(":limit"), orderable.limit}};
    return operation("OrderableRepository(adding)", tr("Nepodarilo sa pridať objednávateľnú položku!"))
        .change(sql, values);
}

bool OrderableRepository::updateOrderable(OrderableRecord orderable)
{
    qDebug() << "id: " << orderable.orderableID << " updating orderable...";
    return operation("OrderableRepository(updating)", tr("Nepodarilo sa upraviť objednávateľnú položku!"))
        .change(QStringLiteral("UPDATE via_orderables SET position=:position, `limit`=:limit WHERE "
                               "orderableID=:orderableID"),
                {{QStringLiteral(":position"), orderable.position},
                 {QStringLiteral(":limit"), orderable.limit},
                 {QStringLiteral(":orderableID"), orderable.orderableID}});
}

bool OrderableRepository::deleteOrderable(uint orderableID)
{
    qDebug() << "id: " << orderableID << " deleting orderable...";
    return operation("OrderableRepository(deleting)",
                     tr("Nepodarilo sa zmazať objednávateľnú položku! Skúste najprv zmazať všetky objednávky tejto "
                        "položky."))
        .change(QStringLiteral("DELETE FROM via_orderables WHERE orderableID=:orderableID"),
                {{QStringLiteral(":orderableID"), orderableID}});
}

bool OrderableRepository::deleteAllOrderables(QDate date, uint segmentID, uint bid)
{
    const QString sql = bid == 0
        ? QStringLiteral("SELECT orderableID, foodID, bid, segmentID, date, position, price FROM via_orderables WHERE "
                         "date=:date AND segmentID=:segmentID AND bid IS NULL ")
        : QStringLiteral("SELECT orderableID, foodID, bid, segmentID, date, position, price FROM via_orderables WHERE "
                         "date=:date AND segmentID=:segmentID AND bid=:bid ");
    // The result speaks of the reading only, on purpose: each refused delete has told of itself.
    return operation("OrderableRepository(deleting all)", tr("Nepodarilo sa zmazať objednávateľé položky!"))
        .load(sql, slotValues(date, segmentID, bid), [this](const QSqlQuery &row) {
            const uint orderableID = row.value(QStringLiteral("orderableID")).toUInt();
            qDebug() << orderableID << " deleting ID";
            deleteOrderable(orderableID);
        });
}

bool OrderableRepository::updateLock(QDate date, uint segmentID, uint bid, bool locked)
{
    const QString sql = bid == 0
        ? QStringLiteral(
            "UPDATE via_orderables SET locked=:locked WHERE date=:date AND segmentID=:segmentID AND bid IS "
            "NULL")
        : QStringLiteral("UPDATE via_orderables SET locked=:locked WHERE date=:date AND segmentID=:segmentID AND "
                         "bid=:bid");
    SqlValues values = slotValues(date, segmentID, bid);
    values.append({QStringLiteral(":locked"), locked});
    return operation("OrderableRepository(updating lock)", tr("Nepodarilo sa uzamknúť objednávateľná položky!"))
        .change(sql, values);
}

QDate OrderableRepository::loadFirstDate()
{
    QDate date;
    // Tag and text speak of other things on purpose; they are what log watchers and users know.
    operation("FoodRepository(load last foodID)", tr("Nepodarilo sa načítať posledný dátum objednávateľnej položky!"))
        .load(QStringLiteral("SELECT MIN(date) AS date FROM via_orderables"), [&date](const QSqlQuery &row) {
            date = QDate::fromString(row.value(QStringLiteral("date")).toString(), QStringLiteral("yyyy-MM-dd"));
            qDebug() << date;
        });
    return date;
}

QDate OrderableRepository::loadLastDate(uint bid)
{
    const QString sql = QStringLiteral("SELECT MAX(date) date FROM via_orderables WHERE %1 ORDER BY date")
                            .arg(bid == 0 ? QStringLiteral("bid IS NULL") : QStringLiteral("bid=:bid"));
    SqlValues values;
    if (bid != 0)
        values.append({QStringLiteral(":bid"), bid});
    QDate date;
    operation("FoodRepository(load last foodID for bid)",
              tr("Nepodarilo sa načítať posledný dátum objednávateľnej položky!"))
        .load(sql, values, [&date](const QSqlQuery &row) { date = row.value(QStringLiteral("date")).toDate(); });
    return date;
}
