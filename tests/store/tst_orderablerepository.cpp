#include "store/orderablerepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestOrderableRepository : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsArePlainMembers();
    void loads();
    void loadsByDate_data();
    void loadsByDate();
    void loadsEveryFieldByDate();
    void counts();
    void foodIDsOfASlot();
    void everythingExists();
    void addsToABranch();
    void addsForAllBranches();
    void addWithoutADateIsRefused();
    void updatesPositionAndLimitOnly();
    void deletes();
    void deleteIsRefusedWhileOrdered();
    void deletesAllOfASlot_data();
    void deletesAllOfASlot();
    void orderedItemsSurviveTheDeletionOfAll();
    void deletionOfAllOfAnEmptySlot();
    void locks_data();
    void locks();
    void firstDate();
    void lastDate();
    void itemGoneBetweenLoadAndWrite();

private:
    QStringList items() const
    {
        return m_database.rows(
            "SELECT orderableID, foodID, bid, segmentID, date, position, price, `limit`, locked FROM "
            "via_orderables ORDER BY orderableID");
    }
    void addItems(const QString &values) const
    {
        m_database.exec("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, price, "
                        "`limit`, locked) VALUES "
                        + values);
    }
    QStringList keys() const { return m_database.rows("SELECT orderableID FROM via_orderables ORDER BY orderableID"); }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
    const QDate m_day{2024, 1, 4};
};

void TestOrderableRepository::init()
{
    m_database.clear();
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec("INSERT INTO via_segments (name) VALUES ('obed'), ('večera')");
    m_database.exec("INSERT INTO via_foods (typeID, name) VALUES (1, 'f'), (1, 'g'), (1, 'h')");
}

void TestOrderableRepository::operationsArePlainMembers()
{
    const OrderableRepository repository(m_database.db());
    QCOMPARE(repository.metaObject()->className(), "OrderableRepository");
    QCOMPARE(repository.metaObject()->methodCount(), QObject::staticMetaObject.methodCount());
}

void TestOrderableRepository::loads()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 3, 2.5, 9, 1), (8, 2, NULL, 1, '2024-01-04', 3, 2.5, 9, 1)");
    OrderableRepository repository(m_database.db());
    const OrderableRecord item = repository.loadOrderable(7);
    QCOMPARE(item.orderableID, 7U);
    QCOMPARE(item.foodID, 2U);
    QCOMPARE(item.bid, 4U);
    QCOMPARE(item.segmentID, 1U);
    QCOMPARE(item.date, m_day);
    QCOMPARE(item.position, 3U);
    QCOMPARE(item.price, 2.5);
    QCOMPARE(item.limit, 0U); // not read
    QCOMPARE(item.locked, 0U); // not read
    QCOMPARE(repository.loadOrderable(8).bid, 0U);
    LogCatcher log;
    const OrderableRecord missing = repository.loadOrderable(99);
    QCOMPARE(missing.orderableID, 0U);
    QVERIFY(!missing.date.isValid());
    QCOMPARE(log.lines(), QStringList());
}

void TestOrderableRepository::loadsByDate_data()
{
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QString>("keys");
    QTest::newRow("branch and all branches") << 4U << "1 3";
    QTest::newRow("another branch") << 5U << "2 3";
    QTest::newRow("branch without items") << 6U << "3";
    QTest::newRow("all branches only") << 0U << "3";
}

void TestOrderableRepository::loadsByDate()
{
    QFETCH(uint, bid);
    QFETCH(QString, keys);
    addItems(
        "(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 1, 5, 1, '2024-01-04', 1, 1, 0, 0), (3, 1, NULL, 2, "
        "'2024-01-04', 1, 1, 0, 0), (4, 1, NULL, 1, '2024-01-05', 1, 1, 0, 0), (5, 1, 4, 1, '2024-01-03', 1, 1, 0, "
        "0)");
    QStringList found;
    const QList<OrderableRecord> records = OrderableRepository(m_database.db()).loadOrderablesByDate(m_day, bid);
    for (const OrderableRecord &record : records)
        found.append(QString::number(record.orderableID));
    found.sort();
    QCOMPARE(found.join(' '), keys);
}

void TestOrderableRepository::loadsEveryFieldByDate()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 3, 2.5, 9, 2)");
    OrderableRepository repository(m_database.db());
    const QList<OrderableRecord> records = repository.loadOrderablesByDate(m_day, 4);
    QCOMPARE(records.size(), 1);
    const OrderableRecord &item = records.at(0);
    QCOMPARE(item.orderableID, 7U);
    QCOMPARE(item.foodID, 2U);
    QCOMPARE(item.bid, 4U);
    QCOMPARE(item.segmentID, 1U);
    QCOMPARE(item.date, m_day);
    QCOMPARE(item.position, 3U);
    QCOMPARE(item.price, 2.5);
    QCOMPARE(item.limit, 0U); // not read
    QCOMPARE(item.locked, 2U);
    QVERIFY(repository.loadOrderablesByDate(QDate(), 4).isEmpty());
}

void TestOrderableRepository::counts()
{
    OrderableRepository repository(m_database.db());
    QCOMPARE(repository.numOfSegments(), 2);
    QCOMPARE(repository.numOfTypes(), 1);
}

void TestOrderableRepository::foodIDsOfASlot()
{
    addItems(
        "(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 2, NULL, 1, '2024-01-04', 10, 1, 0, 0), (3, 3, 5, 1, "
        "'2024-01-04', 2, 1, 0, 0), (4, 3, NULL, 2, '2024-01-04', 1, 1, 0, 0), (5, 3, NULL, 1, '2024-01-05', 1, 1, "
        "0, 0)");
    OrderableRepository repository(m_database.db());
    QCOMPARE(repository.loadFoodIDs(m_day, 1), (QList<uint>{2, 3, 1}));
    QCOMPARE(repository.loadFoodIDs(m_day, 9), QList<uint>());
}

void TestOrderableRepository::everythingExists()
{
    addItems("(1, 1, NULL, 1, '2024-01-04', 1, 1, 0, 0)");
    OrderableRepository repository(m_database.db());
    OrderableRecord onTheSlot;
    onTheSlot.foodID = 1;
    onTheSlot.segmentID = 1;
    onTheSlot.date = m_day;
    QVERIFY(repository.orderableExists(onTheSlot));
    onTheSlot.foodID = 2; // stands nowhere
    QVERIFY(repository.orderableExists(onTheSlot));
    onTheSlot.segmentID = 2; // an empty slot
    QVERIFY(repository.orderableExists(onTheSlot));
    QVERIFY(repository.orderableExists(OrderableRecord()));
}

void TestOrderableRepository::addsToABranch()
{
    QVERIFY(OrderableRepository(m_database.db()).addOrderable({99, 2, 4, 1, m_day, 3, 2.55, 7, 1}));
    QCOMPARE(items(), QStringList{"1|2|4|1|2024-01-04|3|2.55|7|0"});
}

void TestOrderableRepository::addsForAllBranches()
{
    QVERIFY(OrderableRepository(m_database.db()).addOrderable({0, 2, 0, 1, QDate(2024, 12, 31), 3, 0.1, 0, 0}));
    QCOMPARE(items(), QStringList{"1|2|NULL|1|2024-12-31|3|0.1|0|0"});
    QCOMPARE(m_database.value("SELECT COUNT(*) FROM via_orderables WHERE bid=0").toInt(), 0);
}

void TestOrderableRepository::addWithoutADateIsRefused()
{
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať objednávateľnú položku!");
    QVERIFY(!OrderableRepository(m_database.db()).addOrderable({0, 2, 0, 1, QDate(), 3, 0.1, 0, 0}));
    QCOMPARE(items(), QStringList());
}

void TestOrderableRepository::updatesPositionAndLimitOnly()
{
    addItems("(1, 1, 4, 1, '2024-01-04', 1, 1.5, 0, 1), (2, 1, 4, 1, '2024-01-04', 2, 1.5, 0, 1)");
    LogCatcher log;
    QVERIFY(OrderableRepository(m_database.db()).updateOrderable({1, 3, 0, 2, QDate(2025, 5, 5), 8, 99, 6, 0}));
    QCOMPARE(items(), (QStringList{"1|1|4|1|2024-01-04|8|1.5|6|1", "2|1|4|1|2024-01-04|2|1.5|0|1"}));
    QCOMPARE(log.lines(), QStringList{"id:  1  updating orderable..."});
}

void TestOrderableRepository::deletes()
{
    addItems("(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 1, 4, 1, '2024-01-04', 2, 1, 0, 0)");
    LogCatcher log;
    QVERIFY(OrderableRepository(m_database.db()).deleteOrderable(1));
    QCOMPARE(keys(), QStringList{"2"});
    QCOMPARE(log.lines(), QStringList{"id:  1  deleting orderable..."});
}

void TestOrderableRepository::deleteIsRefusedWhileOrdered()
{
    addItems("(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 1)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (1, 5, 2)");
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať objednávateľnú položku! Skúste najprv zmazať všetky objednávky tejto "
                      "položky.");
    QVERIFY(!OrderableRepository(m_database.db()).deleteOrderable(1));
    QCOMPARE(items(), QStringList{"1|1|4|1|2024-01-04|1|1|0|1"});
    QCOMPARE(m_database.rows("SELECT orderableID, uid, quantity FROM via_orders"), QStringList{"1|5|2"});
    QVERIFY(log.critical().value(0).startsWith("OrderableRepository(deleting) - SQL ERROR: Cannot delete or update"));
}

void TestOrderableRepository::deletesAllOfASlot_data()
{
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("branch") << 4U << QStringList{"2", "3", "4", "5"};
    QTest::newRow("all branches") << 0U << QStringList{"1", "2", "4", "5", "6"};
}

void TestOrderableRepository::deletesAllOfASlot()
{
    QFETCH(uint, bid);
    QFETCH(QStringList, left);
    addItems(
        "(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 1, 5, 1, '2024-01-04', 1, 1, 0, 0), (3, 1, NULL, 1, "
        "'2024-01-04', 1, 1, 0, 0), (4, 1, 4, 2, '2024-01-04', 1, 1, 0, 0), (5, 1, 4, 1, '2024-01-05', 1, 1, 0, 0), "
        "(6, 2, 4, 1, '2024-01-04', 1, 1, 0, 0)");
    QVERIFY(OrderableRepository(m_database.db()).deleteAllOrderables(m_day, 1, bid));
    QCOMPARE(keys(), left);
}

void TestOrderableRepository::orderedItemsSurviveTheDeletionOfAll()
{
    addItems("(1, 1, NULL, 1, '2024-01-04', 1, 1, 0, 0), (2, 2, NULL, 1, '2024-01-04', 2, 1, 0, 0), (3, 3, NULL, 1, "
             "'2024-01-04', 3, 1, 0, 0)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (2, 5, 2)");
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať objednávateľnú položku! Skúste najprv zmazať všetky objednávky tejto "
                      "položky.");
    QVERIFY(OrderableRepository(m_database.db()).deleteAllOrderables(m_day, 1, 0)); // tells of the reading only
    QCOMPARE(keys(), QStringList{"2"});
    QCOMPARE(log.critical().size(), 1);
    QStringList told = log.lines(QtDebugMsg);
    told.sort();
    QCOMPARE(told,
             (QStringList{"1  deleting ID", "2  deleting ID", "3  deleting ID", "id:  1  deleting orderable...",
                          "id:  2  deleting orderable...", "id:  3  deleting orderable..."}));
}

void TestOrderableRepository::deletionOfAllOfAnEmptySlot()
{
    LogCatcher log;
    QVERIFY(OrderableRepository(m_database.db()).deleteAllOrderables(m_day, 1, 0));
    QCOMPARE(log.lines(), QStringList());
}

void TestOrderableRepository::locks_data()
{
    QTest::addColumn<uint>("bid");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<QString>("states"); // of items 1 to 6, before: 0 1 0 0 0 2
    QTest::newRow("lock branch") << 4U << true << "1 1 0 0 0 1";
    QTest::newRow("unlock branch") << 4U << false << "0 1 0 0 0 0";
    QTest::newRow("lock all branches") << 0U << true << "0 1 1 0 0 2";
    QTest::newRow("unlock another branch") << 5U << false << "0 0 0 0 0 2";
}

void TestOrderableRepository::locks()
{
    QFETCH(uint, bid);
    QFETCH(bool, locked);
    QFETCH(QString, states);
    addItems(
        "(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 1, 5, 1, '2024-01-04', 1, 1, 0, 1), (3, 1, NULL, 1, "
        "'2024-01-04', 1, 1, 0, 0), (4, 1, 4, 2, '2024-01-04', 1, 1, 0, 0), (5, 1, 4, 1, '2024-01-05', 1, 1, 0, 0), "
        "(6, 2, 4, 1, '2024-01-04', 1, 1, 0, 2)");
    QVERIFY(OrderableRepository(m_database.db()).updateLock(m_day, 1, bid, locked));
    QCOMPARE(m_database.rows("SELECT locked FROM via_orderables ORDER BY orderableID").join(' '), states);
}

void TestOrderableRepository::firstDate()
{
    OrderableRepository repository(m_database.db());
    LogCatcher log;
    QVERIFY(!repository.loadFirstDate().isValid());
    QCOMPARE(log.lines(), QStringList{"QDate(Invalid)"});
    log.clear();
    addItems("(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 1, NULL, 1, '2020-12-31', 1, 1, 0, 0)");
    QCOMPARE(repository.loadFirstDate(), QDate(2020, 12, 31));
    QCOMPARE(log.lines(), QStringList{"QDate(\"2020-12-31\")"});
}

void TestOrderableRepository::lastDate()
{
    OrderableRepository repository(m_database.db());
    LogCatcher log;
    QVERIFY(!repository.loadLastDate(4).isValid());
    QVERIFY(!repository.loadLastDate(0).isValid());
    addItems("(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (2, 1, NULL, 1, '2020-12-31', 1, 1, 0, 0), (3, 1, 4, 1, "
             "'2023-06-01', 1, 1, 0, 0), (4, 1, 5, 1, '2030-06-01', 1, 1, 0, 0)");
    QCOMPARE(repository.loadLastDate(4), m_day);
    QCOMPARE(repository.loadLastDate(0), QDate(2020, 12, 31));
    QVERIFY(!repository.loadLastDate(6).isValid());
    QCOMPARE(log.lines(), QStringList());
}

void TestOrderableRepository::itemGoneBetweenLoadAndWrite()
{
    addItems("(1, 1, 4, 1, '2024-01-04', 1, 1, 0, 0)");
    OrderableRepository repository(m_database.db());
    const OrderableRecord item = repository.loadOrderable(1);
    m_database.exec("DELETE FROM via_orderables");
    QVERIFY(repository.updateOrderable(item));
    QVERIFY(repository.deleteOrderable(1));
    QVERIFY(repository.updateLock(m_day, 1, 4, true));
    QCOMPARE(items(), QStringList());
}

QTEST_MAIN(TestOrderableRepository)
#include "tst_orderablerepository.moc"
