#include "store/menuqueries.h"

namespace {

/// A date as the statements carry it in their text.
QString isoDate(QDate date)
{
    return date.toString(QStringLiteral("yyyy-MM-dd"));
}

/// What follows the name of a branch column in a statement without placeholders.
QString isBranch(uint bid)
{
    return bid == 0 ? QStringLiteral("IS NULL") : QStringLiteral("=%1").arg(bid);
}

/// A condition on a branch column in a statement with the placeholder `:bid`.
QString branchCondition(const QString &column, uint bid, const QString &isNull)
{
    return column + (bid == 0 ? QLatin1Char(' ') + isNull : QStringLiteral("=:bid"));
}

} // namespace

namespace MenuQueries {

QString dayMenu(uint bid)
{
    const QString isNull = QStringLiteral("IS NULL");
    return QStringLiteral(
               "(SELECT z.foodID, z.typeID, z.name, z.orderableID, z.segmentID, z.date, z.position, z.locked, z.price, "
               "z.total, z.supplierID, z.bid, z.shortcut, z.limit FROM("
               "(SELECT crd.foodID, t.position typeID, cf.name, crd.orderableID, crd.segmentID, crd.date, "
               "crd.position,crd.locked, crd.price, SUM(co.quantity) total, cf.supplierID, crd.bid, s.shortcut, "
               "crd.limit FROM via_orderables crd LEFT JOIN via_foods cf ON crd.foodID=cf.foodID LEFT JOIN via_orders "
               "co ON crd.orderableID=co.orderableID LEFT JOIN via_suppliers s ON cf.supplierID=s.supplierID LEFT JOIN "
               "via_types t ON cf.typeID=t.typeID WHERE crd.date=:date AND crd.segmentID=:segmentID AND %1 GROUP BY "
               "crd.foodID)"
               " UNION ALL "
               "(SELECT cx.foodID, ct.position typeID, cx.name, NULL, NULL, NULL, NULL, NULL, cx.price, NULL, "
               "cx.supplierID, cy.bid, sx.shortcut, NULL FROM via_foods cx LEFT JOIN via_suppliers sx ON "
               "cx.supplierID=sx.supplierID LEFT JOIN via_types ct ON cx.typeID=ct.typeID JOIN via_supplierbranch cy "
               "ON cy.supplierID=cx.supplierID AND %2)"
               ") AS z GROUP BY z.foodID)"
               " UNION ALL "
               "(SELECT '0', via_types.position, via_types.name, NULL,NULL,NULL,'0',NULL,NULL,NULL, NULL, NULL, NULL, "
               "NULL FROM via_types) ORDER BY typeID, position")
        .arg(branchCondition(QStringLiteral("crd.bid"), bid, isNull),
             branchCondition(QStringLiteral("cy.bid"), bid, isNull));
}

QString week(QDate date, uint bid, int uid)
{
    const QString person = uid == -1 ? QString() : QStringLiteral(" AND co.uid=%1").arg(uid);
    return QStringLiteral(
               "(SELECT crd.foodID, t.position typeID, CONCAT(s.shortcut,' ',cf.name) name, crd.orderableID, "
               "crd.segmentID, crd.date, crd.position,crd.locked, crd.price, SUM(co.quantity) total, cf.supplierID, "
               "crd.bid, s.shortcut, crd.limit FROM via_orderables crd LEFT JOIN via_foods cf ON "
               "crd.foodID=cf.foodID LEFT JOIN via_types t ON cf.typeID=t.typeID LEFT JOIN via_orders co ON "
               "crd.orderableID=co.orderableID%3 LEFT JOIN via_suppliers s ON cf.supplierID=s.supplierID WHERE crd.bid "
               "%1 AND crd.date-INTERVAL 4 DAY<'%2' AND '%2'<crd.date+INTERVAL 4 DAY GROUP BY orderableID)"
               " UNION ALL "
               "(SELECT '0', via_types.position typeID, via_types.name, NULL,NULL,NULL,'0',NULL,NULL,NULL, NULL, NULL, "
               "NULL, NULL FROM via_types) ORDER BY typeID, position")
        .arg(isBranch(bid), isoDate(date), person);
}

QString personDay(uint bid)
{
    return QStringLiteral(
               "(SELECT cf.foodID, t.position typeID, cf.name, crd.orderableID, crd.segmentID, crd.date, crd.position, "
               "crd.locked, crd.price, SUM(co.quantity) total, s.shortcut, t.informative FROM via_foods cf LEFT JOIN "
               "via_types t ON cf.typeID=t.typeID LEFT JOIN via_orderables crd ON cf.foodID=crd.foodID AND date =:date "
               "AND segmentID=:segmentID AND %1 LEFT JOIN via_orders co ON crd.orderableID=co.orderableID AND "
               "co.uid=:uid LEFT JOIN via_suppliers s ON cf.supplierID=s.supplierID GROUP BY cf.foodID)"
               " UNION ALL "
               "(SELECT '0', via_types.position typepos, via_types.name, NULL,NULL,NULL,'0',NULL,NULL,NULL,NULL, NULL "
               "FROM via_types) ORDER BY typeID, position")
        .arg(branchCondition(QStringLiteral("bid"), bid, QStringLiteral("is NULL")));
}

QString printedDay(QDate day, uint bid)
{
    return QStringLiteral(
               "(SELECT  NULL name, t.name typename, CONCAT(s.shortcut,' ',f.name) foodname, o.price, o.position, "
               "o.segmentID, t.position typepos FROM via_orderables o LEFT JOIN via_foods f ON o.foodID=f.foodID LEFT "
               "JOIN via_types t ON f.typeID=t.typeID LEFT JOIN via_suppliers s ON f.supplierID=s.supplierID WHERE "
               "o.locked>0 AND o.date='%1' AND o.bid %2)"
               " UNION ALL "
               "(SELECT  s.name, NULL, NULL, NULL, NULL, s.segmentID, NULL FROM via_segments s) ORDER BY segmentID, "
               "typepos, position")
        .arg(isoDate(day), isBranch(bid));
}

} // namespace MenuQueries
