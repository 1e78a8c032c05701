#include "store/typerepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestTypeRepository : public QObject {
    Q_OBJECT

private slots:
    void init() { m_database.clear(); }
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsAreSlots();
    void addsUnderANewKey();
    void nullNameIsAnEmptyName();
    void loads();
    void missingKeyGivesTheRecordLoadedLast();
    void updatesOneRow();
    void updateOfAMissingKeyIsNoFailure();
    void deleteTellsItsKey();
    void deleteIsRefusedWhileFoodsHaveTheType();
    void moveTakesEveryRowOfThePosition();
    void rowGoneBetweenLoadAndWrite();

private:
    QStringList types() const
    {
        return m_database.rows("SELECT typeID, name, position, informative FROM via_types ORDER BY typeID");
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestTypeRepository::operationsAreSlots()
{
    const TypeRepository repository(m_database.db());
    for (const char *slot :
         {"loadType(uint)", "addType(TypeRecord)", "updateType(TypeRecord)", "deleteType(uint)", "moveType(uint,uint)"})
        QVERIFY2(repository.metaObject()->indexOfSlot(slot) >= 0, slot);
}

void TestTypeRepository::addsUnderANewKey()
{
    TypeRepository repository(m_database.db());
    QVERIFY(repository.addType({77, "Polievka", 1, 0}));
    QVERIFY(repository.addType({77, "Nápoj", 2, 1}));
    QCOMPARE(types(), (QStringList{"1|Polievka|1|0", "2|Nápoj|2|1"}));
}

void TestTypeRepository::nullNameIsAnEmptyName()
{
    QVERIFY(TypeRepository(m_database.db()).addType(TypeRecord()));
    QCOMPARE(types(), QStringList{"1||0|0"});
}

void TestTypeRepository::loads()
{
    m_database.exec("INSERT INTO via_types VALUES (3, 'Dezert', 4294967295, 1)");
    const TypeRecord type = TypeRepository(m_database.db()).loadType(3);
    QCOMPARE(type.typeID, 3U);
    QCOMPARE(type.name, QString("Dezert"));
    QCOMPARE(type.position, 4294967295U);
    QCOMPARE(type.informative, 1U);
}

void TestTypeRepository::missingKeyGivesTheRecordLoadedLast()
{
    m_database.exec("INSERT INTO via_types VALUES (3, 'Dezert', 2, 1)");
    TypeRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.loadType(99).typeID, 0U);
    QCOMPARE(repository.loadType(99).name, QString());
    QCOMPARE(repository.loadType(3).name, QString("Dezert"));
    const TypeRecord stale = repository.loadType(99);
    QCOMPARE(stale.typeID, 3U);
    QCOMPARE(stale.name, QString("Dezert"));
    QCOMPARE(stale.position, 2U);
    QCOMPARE(stale.informative, 1U);
    QCOMPARE(TypeRepository(m_database.db()).loadType(99).typeID, 0U); // each object has a record of its own
    QCOMPARE(log.lines(), QStringList());
}

void TestTypeRepository::updatesOneRow()
{
    m_database.exec("INSERT INTO via_types VALUES (1, 'a', 1, 0), (2, 'b', 2, 0)");
    QVERIFY(TypeRepository(m_database.db()).updateType({2, "c", 5, 1}));
    QCOMPARE(types(), (QStringList{"1|a|1|0", "2|c|5|1"}));
}

void TestTypeRepository::updateOfAMissingKeyIsNoFailure()
{
    m_database.exec("INSERT INTO via_types VALUES (1, 'a', 1, 0)");
    QVERIFY(TypeRepository(m_database.db()).updateType({2, "c", 5, 1}));
    QCOMPARE(types(), QStringList{"1|a|1|0"});
}

void TestTypeRepository::deleteTellsItsKey()
{
    m_database.exec("INSERT INTO via_types VALUES (1, 'a', 1, 0), (2, 'b', 2, 0)");
    LogCatcher log;
    QVERIFY(TypeRepository(m_database.db()).deleteType(2));
    QCOMPARE(types(), QStringList{"1|a|1|0"});
    QCOMPARE(log.lines(QtDebugMsg), QStringList{"Type with typeID  2  deleted."});
}

void TestTypeRepository::deleteIsRefusedWhileFoodsHaveTheType()
{
    m_database.exec("INSERT INTO via_types VALUES (1, 'a', 1, 0)");
    m_database.exec("INSERT INTO via_foods (typeID, name) VALUES (1, 'f')");
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať typ jedla ! Skúste pred zmazaním typu jedla najprv zmazať všetky jedlá "
                      "tohoto typu.");
    QVERIFY(!TypeRepository(m_database.db()).deleteType(1));
    QCOMPARE(types(), QStringList{"1|a|1|0"});
    QCOMPARE(m_database.rows("SELECT typeID, name FROM via_foods"), QStringList{"1|f"});
    QCOMPARE(log.lines(QtDebugMsg), QStringList());
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().value(0).startsWith("TypeRepository(deleting) - SQL ERROR: Cannot delete or update"));
}

void TestTypeRepository::moveTakesEveryRowOfThePosition()
{
    m_database.exec("INSERT INTO via_types VALUES (1, 'a', 1, 0), (2, 'b', 2, 0), (3, 'c', 2, 0), (4, 'd', 3, 0)");
    TypeRepository repository(m_database.db());
    QVERIFY(repository.moveType(2, 3));
    QCOMPARE(types(), (QStringList{"1|a|1|0", "2|b|3|0", "3|c|3|0", "4|d|3|0"}));
    QVERIFY(repository.moveType(9, 1)); // nobody stands there
    QCOMPARE(types(), (QStringList{"1|a|1|0", "2|b|3|0", "3|c|3|0", "4|d|3|0"}));
}

void TestTypeRepository::rowGoneBetweenLoadAndWrite()
{
    m_database.exec("INSERT INTO via_types VALUES (1, 'a', 1, 0)");
    TypeRepository repository(m_database.db());
    TypeRecord type = repository.loadType(1);
    m_database.exec("DELETE FROM via_types");
    type.name = "changed";
    QVERIFY(repository.updateType(type));
    QVERIFY(repository.deleteType(type.typeID));
    QCOMPARE(types(), QStringList());
}

QTEST_MAIN(TestTypeRepository)
#include "tst_typerepository.moc"
