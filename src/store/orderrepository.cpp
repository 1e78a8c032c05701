#include "store/orderrepository.h"

#include "store/sqloperation.h"

#include <QDebug>

#include <limits>

OrderRepository::OrderRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

bool OrderRepository::addOrder(OrderRecord order)
{
    qDebug() << "Adding order with uid :" << order.uid;
    // The driver refuses a statement with a placeholder that has no value, so the NULL of a new order is bound as one.
    return SqlOperation(m_db, "OrderRepository(adding)")
        .change(QStringLiteral("INSERT INTO via_orders (orderableID, uid, quantity, ordered, delivered) VALUES "
                               "(:orderableID, :uid, :quantity, :ordered, :delivered)"),
                {{QStringLiteral(":orderableID"), order.orderableID},
                 {QStringLiteral(":uid"), order.uid},
                 {QStringLiteral(":quantity"), order.quantity},
                 {QStringLiteral(":ordered"), sqlString(order.ordered)},
                 {QStringLiteral(":delivered"), QVariant(QVariant::String)}});
}

bool OrderRepository::deleteOrder(OrderRecord order)
{
    return SqlOperation(m_db, "OrderRepository(deleting)")
        .change(QStringLiteral("DELETE FROM via_orders WHERE orderableID=:orderableID AND uid=:uid"),
                {{QStringLiteral(":orderableID"), order.orderableID}, {QStringLiteral(":uid"), order.uid}});
}

bool OrderRepository::checkOrderableLimit(OrderRecord order, int &available, int &limit)
{
    available = 0;
    SqlOperation operation(m_db, "OrderRepository(checkOrderableLimit)");
    operation.run(
        QStringLiteral("SELECT (SELECT SUM(quantity) FROM via_orders WHERE orderableID = %1 AND uid != %2) AS "
                       "ttl, (SELECT `limit` FROM via_orderables WHERE orderableID = %1) AS lmt")
            .arg(order.orderableID)
            .arg(order.uid));
    if (!operation.succeededOrReported()) {
        available = -100;
        return false;
    }
    if (!operation.query().next())
        return false;
    const qint64 others = operation.query().value(QStringLiteral("ttl")).toUInt();
    limit = operation.query().value(QStringLiteral("lmt")).toInt();
    available =
        static_cast<int>(qMax<qint64>(qint64(limit) - order.quantity - others, std::numeric_limits<int>::min()));
    return true;
}

QString OrderRepository::getFoodName(uint orderableID)
{
    QString name;
    SqlOperation(m_db, "OrderRepository(getFoodName)")
        .load(QStringLiteral("SELECT name FROM via_orderables JOIN via_foods USING(foodID) WHERE orderableID = %1")
                  .arg(orderableID),
              [&name](const QSqlQuery &row) { name = row.value(0).toString(); });
    return name;
}
