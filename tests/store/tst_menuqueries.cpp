#include "store/menuqueries.h"

#include <QtTest>

namespace {

// The statements are behaviour, down to their blanks: they stand here once more in full.

const char dayMenu[] = "(SELECT z.foodID, z.typeID, z.name, z.orderableID, z.segmentID, z.date, z.position, "
                       "z.locked, z.price, z.total, z.supplierID, z.bid, z.shortcut, z.limit FROM((SELECT "
                       "crd.foodID, t.position typeID, cf.name, crd.orderableID, crd.segmentID, crd.date, "
                       "crd.position,crd.locked, crd.price, SUM(co.quantity) total, cf.supplierID, crd.bid, "
                       "s.shortcut, crd.limit FROM via_orderables crd LEFT JOIN via_foods cf ON "
                       "crd.foodID=cf.foodID LEFT JOIN via_orders co ON crd.orderableID=co.orderableID LEFT JOIN "
                       "via_suppliers s ON cf.supplierID=s.supplierID LEFT JOIN via_types t ON cf.typeID=t.typeID "
                       "WHERE crd.date=:date AND crd.segmentID=:segmentID AND crd.bid=:bid GROUP BY crd.foodID) "
                       "UNION ALL (SELECT cx.foodID, ct.position typeID, cx.name, NULL, NULL, NULL, NULL, NULL, "
                       "cx.price, NULL, cx.supplierID, cy.bid, sx.shortcut, NULL FROM via_foods cx LEFT JOIN "
                       "via_suppliers sx ON cx.supplierID=sx.supplierID LEFT JOIN via_types ct ON "
                       "cx.typeID=ct.typeID JOIN via_supplierbranch cy ON cy.supplierID=cx.supplierID AND "
                       "cy.bid=:bid)) AS z GROUP BY z.foodID) UNION ALL (SELECT '0', via_types.position, "
                       "via_types.name, NULL,NULL,NULL,'0',NULL,NULL,NULL, NULL, NULL, NULL, NULL FROM via_types) "
                       "ORDER BY typeID, position";

const char week[] = "(SELECT crd.foodID, t.position typeID, CONCAT(s.shortcut,' ',cf.name) name, "
                    "crd.orderableID, crd.segmentID, crd.date, crd.position,crd.locked, crd.price, "
                    "SUM(co.quantity) total, cf.supplierID, crd.bid, s.shortcut, crd.limit FROM via_orderables "
                    "crd LEFT JOIN via_foods cf ON crd.foodID=cf.foodID LEFT JOIN via_types t ON "
                    "cf.typeID=t.typeID LEFT JOIN via_orders co ON crd.orderableID=co.orderableID AND co.uid=%3 "
                    "LEFT JOIN via_suppliers s ON cf.supplierID=s.supplierID WHERE crd.bid %1 AND "
                    "crd.date-INTERVAL 4 DAY<'%2' AND '%2'<crd.date+INTERVAL 4 DAY GROUP BY orderableID) UNION "
                    "ALL (SELECT '0', via_types.position typeID, via_types.name, "
                    "NULL,NULL,NULL,'0',NULL,NULL,NULL, NULL, NULL, NULL, NULL FROM via_types) ORDER BY typeID, "
                    "position";

const char personDay[] = "(SELECT cf.foodID, t.position typeID, cf.name, crd.orderableID, crd.segmentID, crd.date, "
                         "crd.position, crd.locked, crd.price, SUM(co.quantity) total, s.shortcut, t.informative FROM "
                         "via_foods cf LEFT JOIN via_types t ON cf.typeID=t.typeID LEFT JOIN via_orderables crd ON "
                         "cf.foodID=crd.foodID AND date =:date AND segmentID=:segmentID AND %1 LEFT JOIN via_orders "
                         "co ON crd.orderableID=co.orderableID AND co.uid=:uid LEFT JOIN via_suppliers s ON "
                         "cf.supplierID=s.supplierID GROUP BY cf.foodID) UNION ALL (SELECT '0', via_types.position "
                         "typepos, via_types.name, NULL,NULL,NULL,'0',NULL,NULL,NULL,NULL, NULL FROM via_types) ORDER "
                         "BY typeID, position";

const char printedDay[] = "(SELECT  NULL name, t.name typename, CONCAT(s.shortcut,' ',f.name) foodname, o.price, "
                          "o.position, o.segmentID, t.position typepos FROM via_orderables o LEFT JOIN via_foods f ON "
                          "o.foodID=f.foodID LEFT JOIN via_types t ON f.typeID=t.typeID LEFT JOIN via_suppliers s ON "
                          "f.supplierID=s.supplierID WHERE o.locked>0 AND o.date='%1' AND o.bid %2) UNION ALL (SELECT  "
                          "s.name, NULL, NULL, NULL, NULL, s.segmentID, NULL FROM via_segments s) ORDER BY segmentID, "
                          "typepos, position";

} // namespace

class TestMenuQueries : public QObject {
    Q_OBJECT

private slots:
    void dayMenuStatement();
    void weekStatement();
    void personDayStatement();
    void printedDayStatement();
};

void TestMenuQueries::dayMenuStatement()
{
    QCOMPARE(MenuQueries::dayMenu(5), QString(dayMenu));
    QCOMPARE(MenuQueries::dayMenu(0),
             QString(dayMenu).replace("crd.bid=:bid", "crd.bid IS NULL").replace("cy.bid=:bid", "cy.bid IS NULL"));
}

void TestMenuQueries::weekStatement()
{
    const QDate date(2024, 1, 4);
    const QString statement = QString(week).replace("%2", "2024-01-04");
    QCOMPARE(MenuQueries::week(date, 5, 7), QString(statement).replace("%1", "=5").replace("%3", "7"));
    QCOMPARE(MenuQueries::week(date, 0, 0), QString(statement).replace("%1", "IS NULL").replace("%3", "0"));
    QCOMPARE(MenuQueries::week(date, 4294967295U, -2),
             QString(statement).replace("%1", "=4294967295").replace("%3", "-2"));
    QCOMPARE(MenuQueries::week(date, 5, -1), QString(statement).replace("%1", "=5").remove(" AND co.uid=%3"));
}

void TestMenuQueries::personDayStatement()
{
    QCOMPARE(MenuQueries::personDay(5), QString(personDay).replace("%1", "bid=:bid"));
    QCOMPARE(MenuQueries::personDay(0), QString(personDay).replace("%1", "bid is NULL"));
}

void TestMenuQueries::printedDayStatement()
{
    const QString statement = QString(printedDay).replace("%1", "2024-12-31");
    QCOMPARE(MenuQueries::printedDay(QDate(2024, 12, 31), 5), QString(statement).replace("%2", "=5"));
    QCOMPARE(MenuQueries::printedDay(QDate(2024, 12, 31), 0), QString(statement).replace("%2", "IS NULL"));
}

QTEST_APPLESS_MAIN(TestMenuQueries)
#include "tst_menuqueries.moc"
