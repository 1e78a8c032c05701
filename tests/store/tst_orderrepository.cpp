#include "store/orderrepository.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestOrderRepository : public QObject {
    Q_OBJECT

private slots:
    void init();

    void hasNoMetaObject();
    void addedOrderIsNotDelivered();
    void addedOrderForAMissingItemFails();
    void deletesAllRowsOfThePersonOnTheItem();
    void limit_data();
    void limit();
    void limitOfAMissingItem();
    void foodName();
    void foodNameOfAMissingItemIsSilent();

private:
    QStringList orders() const
    {
        return m_database.rows(
            "SELECT orderableID, uid, quantity, ordered, delivered FROM via_orders ORDER BY orderID");
    }

    const TestDatabase m_database;
};

void TestOrderRepository::init()
{
    m_database.clear();
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec("INSERT INTO via_segments (name) VALUES ('s')");
    m_database.exec("INSERT INTO via_foods (typeID, name) VALUES (1, 'Guláš'), (1, 'Šalát')");
    m_database.exec("INSERT INTO via_orderables (foodID, segmentID, date, `limit`) VALUES (1, 1, '2024-01-04', 3), "
                    "(2, 1, '2024-01-04', 0)");
}

void TestOrderRepository::hasNoMetaObject()
{
    const OrderRepository repository(m_database.db());
    QCOMPARE(repository.metaObject(), &QObject::staticMetaObject);
}

void TestOrderRepository::addedOrderIsNotDelivered()
{
    OrderRepository repository(m_database.db());
    LogCatcher log;
    QVERIFY(repository.addOrder({9, 1, 4000000000U, 2, "ZEP-adminID: 3, 4.1.2024, 7:05:09", "2024-01-04 12:00:00"}));
    QCOMPARE(orders(), QStringList{"1|4000000000|2|ZEP-adminID: 3, 4.1.2024, 7:05:09|NULL"});
    QCOMPARE(m_database.value("SELECT orderID FROM via_orders").toUInt(), 1U);
    QCOMPARE(log.lines(), QStringList{"Adding order with uid : 4000000000"});
}

void TestOrderRepository::addedOrderForAMissingItemFails()
{
    LogCatcher log;
    QVERIFY(!OrderRepository(m_database.db()).addOrder({0, 99, 5, 2, QString(), QString()}));
    QCOMPARE(orders(), QStringList());
    QVERIFY(log.critical().value(0).startsWith("OrderRepository(adding) - SQL ERROR: Cannot add or update"));
}

void TestOrderRepository::deletesAllRowsOfThePersonOnTheItem()
{
    m_database.exec(
        "INSERT INTO via_orders (orderableID, uid, quantity) VALUES (1, 5, 1), (1, 5, 2), (1, 6, 3), (2, 5, "
        "4)");
    OrderRepository repository(m_database.db());
    QVERIFY(repository.deleteOrder({0, 1, 5, 0, QString(), QString()}));
    QCOMPARE(orders(), (QStringList{"1|6|3|NULL|NULL", "2|5|4|NULL|NULL"}));
    QVERIFY(repository.deleteOrder({0, 1, 5, 0, QString(), QString()})); // nothing to delete is no failure
}

void TestOrderRepository::limit_data()
{
    QTest::addColumn<QString>("orders"); // (orderableID, uid, quantity)
    QTest::addColumn<uint>("item");
    QTest::addColumn<int>("quantity");
    QTest::addColumn<int>("available");
    QTest::addColumn<int>("limit");
    QTest::newRow("no orders at all") << "" << 1U << 1 << 2 << 3;
    QTest::newRow("own row left out") << "(1, 5, 2)" << 1U << 3 << 0 << 3;
    QTest::newRow("others count") << "(1, 6, 1), (1, 7, 1)" << 1U << 1 << 0 << 3;
    QTest::newRow("too many") << "(1, 6, 2)" << 1U << 3 << -2 << 3;
    QTest::newRow("used up") << "(1, 6, 3)" << 1U << 1 << -1 << 3;
    QTest::newRow("orders of another item") << "(2, 6, 3)" << 1U << 1 << 2 << 3;
    QTest::newRow("no limit") << "(2, 6, 3)" << 2U << 4 << -7 << 0;
    QTest::newRow("quantity 0") << "(1, 6, 1)" << 1U << 0 << 2 << 3;
}

void TestOrderRepository::limit()
{
    QFETCH(QString, orders);
    QFETCH(uint, item);
    QFETCH(int, quantity);
    if (!orders.isEmpty())
        m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES " + orders);
    int available = 55;
    int limit = 66;
    LogCatcher log;
    QVERIFY(OrderRepository(m_database.db())
                .checkOrderableLimit({0, item, 5, quantity, QString(), QString()}, available, limit));
    QTEST(available, "available");
    QTEST(limit, "limit");
    QCOMPARE(log.lines(), QStringList());
}

void TestOrderRepository::limitOfAMissingItem()
{
    int available = 55;
    int limit = 66;
    QVERIFY(
        OrderRepository(m_database.db()).checkOrderableLimit({0, 99, 5, 2, QString(), QString()}, available, limit));
    QCOMPARE(available, -2);
    QCOMPARE(limit, 0);
}

void TestOrderRepository::foodName()
{
    OrderRepository repository(m_database.db());
    QCOMPARE(repository.getFoodName(1), QString("Guláš"));
    QCOMPARE(repository.getFoodName(2), QString("Šalát"));
}

void TestOrderRepository::foodNameOfAMissingItemIsSilent()
{
    LogCatcher log;
    QCOMPARE(OrderRepository(m_database.db()).getFoodName(99), QString());
    QCOMPARE(log.lines(), QStringList());
}

QTEST_MAIN(TestOrderRepository)
#include "tst_orderrepository.moc"
