#include "models/ordermodel.h"

#include "models/personordersums.h"
#include "session/sqlfailure.h"
#include "session/sqltext.h"

#include <QDateTime>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardItemModel>

namespace {

QString isoDate(const QDate &date)
{
    return date.toString(QStringLiteral("yyyy-MM-dd"));
}

/// The text of a named column of the query's present row; empty for a NULL.
QString text(const QSqlQuery &query, const char *column)
{
    return sqlText(query.value(QLatin1String(column)));
}

double number(const QSqlQuery &query, const char *column)
{
    return query.value(QLatin1String(column)).toDouble();
}

QStandardItem *textItem(const QString &text)
{
    return new QStandardItem(text);
}

/// A cell that holds the number itself, so that printouts and spreadsheets can format and add it.
QStandardItem *numberItem(const QVariant &number)
{
    auto *item = new QStandardItem;
    item->setData(number, Qt::DisplayRole);
    return item;
}

QList<QStandardItem *> personOrderRow(const QSqlQuery &query)
{
    const double price = number(query, "price");
    return {
        textItem(query.value(QStringLiteral("date")).toDate().toString(QStringLiteral("dd. MM. yyyy"))),
        textItem(text(query, "segment")),
        textItem(text(query, "food")),
        numberItem(price),
        textItem(text(query, "quantity")),
        numberItem(number(query, "quantity") * price),
        textItem(text(query, "ordered")),
        textItem(query.value(QStringLiteral("delivered")).toDateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))),
    };
}

QList<QStandardItem *> segmentOrderRow(const QSqlQuery &query)
{
    return {
        textItem(QStringLiteral("%1 %2 *[%3]").arg(text(query, "surname"), text(query, "name"), text(query, "pid"))),
        textItem(text(query, "foodName")),
        textItem(text(query, "quantity")),
        textItem(text(query, "delivered")),
    };
}

QList<QStandardItem *> personSumRow(qint64 pid, const PersonOrderSum &sum)
{
    return {
        textItem(QString::number(pid)),
        textItem(sum.pamId),
        textItem(sum.personName),
        numberItem(sum.quantity),
        textItem(QString::number(sum.quantity)),
        textItem(QString::number(sum.price, 'f', 2)),
    };
}

QString branchDateOrdersStatement(uint branchID)
{
    if (branchID < 1) {
        return QStringLiteral(
            "SELECT p.pid, p.pamId, CONCAT(p.surname,' ',p.name) personName, r.quantity sumquantity,  "
            "(o.price*r.quantity) sumprice FROM via_orders r LEFT JOIN people p ON  r.uid=p.uid  LEFT JOIN "
            "via_orderables o ON o.orderableID=r.orderableID WHERE p.status !=0 AND r.quantity > 0  AND "
            "o.date>=:dateFrom AND o.date<=:dateTo ORDER BY p.pid");
    }
    return QStringLiteral(
               "SELECT p.pid, p.pamId, CONCAT(p.surname,' ',p.name) personName, r.quantity sumquantity, "
               "(o.price*r.quantity) sumprice FROM via_orderables o LEFT JOIN via_orders r ON "
               "o.orderableID=r.orderableID AND o.date>=:dateFrom AND o.date<=:dateTo RIGHT JOIN brape bp ON "
               "r.uid=bp.uid LEFT JOIN people p ON bp.uid=p.uid %1 WHERE p.status !=0 ORDER BY p.pid")
        .arg(QStringLiteral("AND bp.bid=:bid "));
}

} // namespace

OrderModel::OrderModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
}

OrderModel *OrderModel::allOrders()
{
    load(QStringLiteral(
             "SELECT orderID, via_orders.orderableID, via_orderables.date, via_segments.segmentID, via_segments.name, "
             "via_foods.name, people.name, people.surname, quantity, via_orderables.price, ordered, delivered FROM "
             "via_orders LEFT JOIN via_orderables ON via_orders.orderableID = via_orderables.orderableID LEFT JOIN  "
             "people ON via_orders.uid = people.uid LEFT JOIN  via_foods ON via_orderables.foodID = via_foods.foodID "
             "LEFT JOIN  via_segments ON via_orderables.segmentID = via_segments.segmentID ORDER BY people.surname"),
         "OrderModel - setQuery",
         {tr("ID objednávky"), tr("ID menu položky"), tr("Dátum"), tr("ID segmentu"), tr("Segment"), tr("Jedlo"),
          tr("Meno"), tr("Priezvisko"), tr("Počet obj. jedál"), tr("Cena/kus"), tr("Objednané"), tr("Vydané")});
    return this;
}

OrderModel *OrderModel::orderPeopleList(uint orderableID)
{
    load(
        QStringLiteral("SELECT p.pid, CONCAT(p.name,' ',p.surname) name, o.quantity FROM via_orders o LEFT JOIN people "
                       "p ON o.uid=p.uid WHERE o.orderableID=%1")
            .arg(orderableID),
        "OrderModel - orderPeopleList", {tr("ID"), tr("meno"), tr("počet")});
    return this;
}

QStandardItemModel *OrderModel::personDateOrders(QDate dateFrom, QDate dateTo, int uid)
{
    auto *orders = new QStandardItemModel(0, 8);
    QSqlQuery query(database());
    query.prepare(QStringLiteral(
        "SELECT orderID, via_orders.orderableID, via_orderables.date, via_segments.segmentID, via_segments.name AS "
        "segment, via_foods.name AS food, people.name, people.surname, quantity, via_orderables.price, ordered, "
        "delivered FROM via_orders LEFT JOIN via_orderables ON via_orders.orderableID = via_orderables.orderableID "
        "LEFT "
        "JOIN  people ON via_orders.uid = people.uid LEFT JOIN  via_foods ON via_orderables.foodID = via_foods.foodID "
        "LEFT JOIN  via_segments ON via_orderables.segmentID = via_segments.segmentID WHERE "
        "via_orderables.date>=:dateFrom AND via_orderables.date<=:dateTo AND via_orders.uid=:uid ORDER BY "
        "via_orderables.date, via_segments.segmentID"));
    query.bindValue(QStringLiteral(":dateFrom"), dateFrom);
    query.bindValue(QStringLiteral(":dateTo"), dateTo);
    query.bindValue(QStringLiteral(":uid"), uid);
    if (!query.exec())
        SqlFailure::logWithCode("OrderModel - personDateOrders", query.lastError());
    while (query.next())
        orders->appendRow(personOrderRow(query));
    return orders;
}

QStandardItemModel *OrderModel::segmentOrders(QDate date, uint segmentID, uint branchID)
{
    qDebug() << "Date: " << date << ", segmentID: " << segmentID << ", bid: " << branchID;
    auto *orders = new QStandardItemModel(0, 4);
    const QString branch = branchID == 0 ? QStringLiteral("IS NULL") : QStringLiteral("=%1").arg(branchID);
    QSqlQuery query(database());
    const bool done = query.exec(
        QStringLiteral(
            "SELECT p.surname, p.name, p.pid, CONCAT(s.shortcut,' ',f.name) foodName, r.quantity, r.delivered "
            "FROM via_orders r LEFT JOIN people p ON p.uid=r.uid LEFT JOIN via_orderables o ON "
            "o.orderableID=r.orderableID LEFT JOIN via_foods f ON f.foodID=o.foodID LEFT JOIN via_suppliers s "
            "ON f.supplierID=s.supplierID WHERE o.date='%1' AND o.bid %2 AND o.segmentID=%3 ORDER BY p.surname "
            "COLLATE 'utf8_slovak_ci'")
            .arg(isoDate(date), branch, QString::number(segmentID)));
    if (!done)
        SqlFailure::logWithCode("OrderModel - segmentOrders", query.lastError());
    while (query.next())
        orders->appendRow(segmentOrderRow(query));
    return orders;
}

QStandardItemModel *OrderModel::branchDateOrders(QDate dateFrom, QDate dateTo, uint branchID)
{
    qDebug() << "*** OrderModel::branchDateOrders() ***"
             << "dateFrom:" << isoDate(dateFrom) << "dateTo:" << isoDate(dateTo);
    auto *persons = new QStandardItemModel(0, 6);
    QSqlQuery query(database());
    query.prepare(branchDateOrdersStatement(branchID));
    query.bindValue(QStringLiteral(":dateFrom"), dateFrom);
    query.bindValue(QStringLiteral(":dateTo"), dateTo);
    query.bindValue(QStringLiteral(":bid"), branchID);
    if (!query.exec())
        SqlFailure::logWithCode("OrderModel - personDateOrders", query.lastError());
    const PersonOrderSums recMap = sumByPerson(query);
    qDebug() << "*** recMap:" << recMap;
    for (auto person = recMap.cbegin(); person != recMap.cend(); ++person)
        persons->appendRow(personSumRow(person.key(), person.value()));
    return persons;
}
