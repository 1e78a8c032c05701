#include "models/monthlyoverviewmodel.h"
#include "ordersfixture.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

namespace {

QString statement(const QString &branch, const QString &from, const QString &to)
{
    return QStringLiteral("SELECT IF(p.pamId IS NULL OR p.pamId = '' OR p.pamId = '0', p.pid, p.pamId) pid, "
                          "CONCAT(p.surname, ' ', "
                          "p.name,' ',p.title, ' ', p.title2) personName, o.position, o.date, r.quantity, s.position "
                          "segment, s.name "
                          "segname, f.foodID, t.name typename, t.typeID FROM via_orders r LEFT JOIN people p ON "
                          "p.uid=r.uid LEFT JOIN "
                          "via_orderables o ON o.orderableID=r.orderableID LEFT JOIN via_segments s ON "
                          "o.segmentID=s.segmentID LEFT JOIN "
                          "via_foods f ON o.foodID=f.foodID LEFT JOIN via_types t ON f.typeID=t.typeID WHERE  "
                          "p.`status`!=0 AND o.date>= "
                          "'")
        + from + QStringLiteral("' AND o.date<= '") + to + QStringLiteral("' ") + branch
        + QStringLiteral(" ORDER BY pid, date, segment");
}

} // namespace

class TestMonthlyOverviewModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void columnsOfAnOrder();
    void payrollNumberStandsBeforeThePersonalOne();
    void takesTheWholeMonth_data();
    void takesTheWholeMonth();
    void branchIsOfTheMenuItem();
    void sortsByPersonDayAndSlot();
    void leavesOutInactivePeople();
    void settersDoNotQuery();
    void failureIsLoggedAndLeavesTheModelEmpty();

private:
    std::unique_ptr<OrdersFixture> m_orders;
};

void TestMonthlyOverviewModel::initTestCase()
{
    m_orders = std::make_unique<OrdersFixture>();
}

void TestMonthlyOverviewModel::cleanupTestCase()
{
    m_orders.reset();
}

void TestMonthlyOverviewModel::init()
{
    m_orders->reset();
    m_orders->addPerson(1, 101, QStringLiteral("Novák"), QStringLiteral("<b>Ján</b>"));
}

void TestMonthlyOverviewModel::columnsOfAnOrder()
{
    m_orders->addItem(11, 2, QDate(2026, 3, 9), 1, 2, 0, 4);
    m_orders->addOrder(11, 1, 3);
    MonthlyOverviewModel model(m_orders->db());
    const QAbstractItemModelTester tester(&model);
    model.setDate(QDate(2026, 3, 19));
    QCOMPARE(model.rowCount(), 0);
    model.refresh();
    QCOMPARE(model.query().lastQuery(),
             statement(QString(), QStringLiteral("2026-03-01"), QStringLiteral("2026-03-31")));
    QCOMPARE(rowTexts(model),
             QStringList{QStringLiteral("101|Novák <b>Ján</b> Ing. PhD.|4|2026-03-09|3|1|Večera|2|Hlavné jedlo|2")});
    QStringList names;
    for (int column = 0; column < model.columnCount(); ++column)
        names.append(model.record().fieldName(column));
    QCOMPARE(names.join(QLatin1Char(' ')),
             QStringLiteral("pid personName position date quantity segment segname foodID typename typeID"));
}

void TestMonthlyOverviewModel::payrollNumberStandsBeforeThePersonalOne()
{
    m_orders->addPerson(2, 102, QStringLiteral("B"), QStringLiteral("x"), QStringLiteral("0"));
    m_orders->addPerson(3, 103, QStringLiteral("C"), QStringLiteral("x"), QLatin1String(""));
    m_orders->addPerson(4, 104, QStringLiteral("D"), QStringLiteral("x"), QStringLiteral("P77"));
    m_orders->addItem(11, 2, QDate(2026, 3, 9), 1);
    for (const int uid : {1, 2, 3, 4})
        m_orders->addOrder(11, uid, 1);
    MonthlyOverviewModel model(m_orders->db());
    model.setDate(QDate(2026, 3, 1));
    model.refresh();
    QCOMPARE(columnTexts(model, 0).join(QLatin1Char(' ')), QStringLiteral("101 102 103 P77"));
}

void TestMonthlyOverviewModel::takesTheWholeMonth_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("lastDay");
    QTest::newRow("31 days") << QDate(2026, 1, 15) << 31;
    QTest::newRow("30 days") << QDate(2026, 4, 30) << 30;
    QTest::newRow("28 days") << QDate(2026, 2, 1) << 28;
    QTest::newRow("29 days") << QDate(2024, 2, 29) << 29;
    QTest::newRow("December") << QDate(2020, 12, 31) << 31;
}

void TestMonthlyOverviewModel::takesTheWholeMonth()
{
    QFETCH(const QDate, date);
    QFETCH(const int, lastDay);

    const QDate first(date.year(), date.month(), 1);
    const QDate last(date.year(), date.month(), lastDay);
    int item = 10;
    for (const QDate &day : {first.addDays(-1), first, last, last.addDays(1)}) {
        m_orders->addItem(++item, 1, day, 1);
        m_orders->addOrder(item, 1, 1);
    }
    MonthlyOverviewModel model(m_orders->db());
    model.setDate(date);
    LogCatcher log;
    model.refresh();
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(columnTexts(model, 3), (QStringList{first.toString(Qt::ISODate), last.toString(Qt::ISODate)}));
}

void TestMonthlyOverviewModel::branchIsOfTheMenuItem()
{
    m_orders->addItem(11, 1, QDate(2026, 3, 9), 1);
    m_orders->addItem(12, 2, QDate(2026, 3, 9), 1, 1, 5);
    m_orders->addOrder(11, 1, 1);
    m_orders->addOrder(12, 1, 2);
    MonthlyOverviewModel model(m_orders->db());
    model.setDate(QDate(2026, 3, 1));
    model.refresh();
    QCOMPARE(model.rowCount(), 2);
    model.setBranch(5);
    model.refresh();
    QCOMPARE(model.query().lastQuery(),
             statement(QStringLiteral(" AND o.bid = 5 "), QStringLiteral("2026-03-01"), QStringLiteral("2026-03-31")));
    QCOMPARE(columnTexts(model, 4), QStringList{QStringLiteral("2")});
    model.setBranch(0);
    model.refresh();
    QCOMPARE(model.rowCount(), 2);
}

void TestMonthlyOverviewModel::sortsByPersonDayAndSlot()
{
    m_orders->addPerson(2, 100, QStringLiteral("Z"), QStringLiteral("x"));
    m_orders->addItem(11, 1, QDate(2026, 3, 9), 1, 1);
    m_orders->addItem(12, 2, QDate(2026, 3, 9), 1, 2);
    m_orders->addItem(13, 2, QDate(2026, 3, 2), 1, 1);
    for (const int uid : {1, 2}) {
        for (const int item : {11, 12, 13})
            m_orders->addOrder(item, uid, item);
    }
    MonthlyOverviewModel model(m_orders->db());
    model.setDate(QDate(2026, 3, 1));
    model.refresh();
    QCOMPARE(columnTexts(model, 0).join(QLatin1Char(' ')), QStringLiteral("100 100 100 101 101 101"));
    QCOMPARE(columnTexts(model, 4).join(QLatin1Char(' ')), QStringLiteral("13 12 11 13 12 11"));
}

void TestMonthlyOverviewModel::leavesOutInactivePeople()
{
    m_orders->addPerson(2, 102, QStringLiteral("B"), QStringLiteral("x"), QString(), 0);
    m_orders->addItem(11, 1, QDate(2026, 3, 9), 1);
    m_orders->addOrder(11, 2, 1);
    m_orders->addOrder(11, 99, 1);
    MonthlyOverviewModel model(m_orders->db());
    model.setDate(QDate(2026, 3, 1));
    model.refresh();
    QCOMPARE(model.rowCount(), 0);
}

void TestMonthlyOverviewModel::settersDoNotQuery()
{
    m_orders->addItem(11, 1, QDate::currentDate(), 1);
    m_orders->addOrder(11, 1, 1);
    MonthlyOverviewModel model(QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), QStringLiteral("closed")));
    model.setDatabase(m_orders->db());
    QCOMPARE(model.rowCount(), 0);
    model.refresh();
    QCOMPARE(model.rowCount(), 1);
    model.setDate(QDate(2001, 1, 1));
    model.setBranch(3);
    QCOMPARE(model.rowCount(), 1);
}

void TestMonthlyOverviewModel::failureIsLoggedAndLeavesTheModelEmpty()
{
    m_orders->addItem(11, 1, QDate(2026, 3, 9), 1);
    m_orders->addOrder(11, 1, 1);
    MonthlyOverviewModel model(m_orders->db());
    model.setDate(QDate(2026, 3, 1));
    model.refresh();
    QCOMPARE(model.rowCount(), 1);
    const MissingTable missing(m_orders->database(), QStringLiteral("via_orders"));
    LogCatcher log;
    model.refresh();
    QCOMPARE(log.lines(), QStringList{QStringLiteral("MonthlyOverviewModel - SQL ERROR: ") + missing.error()});
    QCOMPARE(log.critical().size(), 1);
    QCOMPARE(model.rowCount(), 0);
}

QTEST_MAIN(TestMonthlyOverviewModel)
#include "tst_monthlyoverviewmodel.moc"
