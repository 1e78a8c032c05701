#include "store/alergenrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestAlergenRepository : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsAreSlots();
    void addsUnderANewKey();
    void loads();
    void missingKeyGivesTheRecordLoadedLast();
    void updatesOneRow();
    void deletes();
    void deleteIsRefusedWhileFoodsAreLinked();
    void linkIsAddedOnce();
    void linkToNothingIsNotStored();
    void oneLinkIsDeleted();
    void allLinksOfAFoodAreDeleted();

private:
    QStringList alergens() const
    {
        return m_database.rows("SELECT alergenID, title, description FROM via_alergens ORDER BY alergenID");
    }
    QStringList links() const
    {
        return m_database.rows("SELECT foodID, alergenID FROM via_foodalergen ORDER BY foodID, alergenID");
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestAlergenRepository::init()
{
    m_database.clear();
    m_database.exec("INSERT INTO via_alergens VALUES (1, 'lepok', 'obilniny'), (2, 'vajcia', NULL)");
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec("INSERT INTO via_foods (typeID, name) VALUES (1, 'f'), (1, 'g')");
}

void TestAlergenRepository::operationsAreSlots()
{
    const AlergenRepository repository(m_database.db());
    for (const char *slot :
         {"loadAlergen(uint)", "addAlergen(AlergenRecord)", "updateAlergen(AlergenRecord)", "deleteAlergen(uint)",
          "addFoodAlergen(uint,uint)", "deleteFoodAlergen(uint,uint)", "deleteAllFoodAlergen(uint)"})
        QVERIFY2(repository.metaObject()->indexOfSlot(slot) >= 0, slot);
}

void TestAlergenRepository::addsUnderANewKey()
{
    QVERIFY(AlergenRepository(m_database.db()).addAlergen({77, "ryby", "a výrobky z nich"}));
    QCOMPARE(alergens(), (QStringList{"1|lepok|obilniny", "2|vajcia|NULL", "3|ryby|a výrobky z nich"}));
}

void TestAlergenRepository::loads()
{
    AlergenRepository repository(m_database.db());
    const AlergenRecord alergen = repository.loadAlergen(1);
    QCOMPARE(alergen.alergenID, 1U);
    QCOMPARE(alergen.title, QString("lepok"));
    QCOMPARE(alergen.description, QString("obilniny"));
    QCOMPARE(repository.loadAlergen(2).description, QString());
}

void TestAlergenRepository::missingKeyGivesTheRecordLoadedLast()
{
    AlergenRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.loadAlergen(99).alergenID, 0U);
    QCOMPARE(repository.loadAlergen(1).alergenID, 1U);
    const AlergenRecord stale = repository.loadAlergen(99);
    QCOMPARE(stale.alergenID, 1U);
    QCOMPARE(stale.title, QString("lepok"));
    QCOMPARE(stale.description, QString("obilniny"));
    QCOMPARE(log.lines(), QStringList());
}

void TestAlergenRepository::updatesOneRow()
{
    AlergenRepository repository(m_database.db());
    QVERIFY(repository.updateAlergen({2, "vajíčka", "slepačie"}));
    QVERIFY(repository.updateAlergen({99, "x", "y"})); // a missing key is no failure
    QCOMPARE(alergens(), (QStringList{"1|lepok|obilniny", "2|vajíčka|slepačie"}));
}

void TestAlergenRepository::deletes()
{
    QVERIFY(AlergenRepository(m_database.db()).deleteAlergen(2));
    QCOMPARE(alergens(), QStringList{"1|lepok|obilniny"});
}

void TestAlergenRepository::deleteIsRefusedWhileFoodsAreLinked()
{
    m_database.exec("INSERT INTO via_foodalergen VALUES (1, 1)");
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom.");
    QVERIFY(!AlergenRepository(m_database.db()).deleteAlergen(1));
    QCOMPARE(alergens(), (QStringList{"1|lepok|obilniny", "2|vajcia|NULL"}));
    QCOMPARE(links(), QStringList{"1|1"});
    QVERIFY(log.critical().value(0).startsWith("AlergenRepository(deleting) - SQL ERROR: Cannot delete or update"));
}

void TestAlergenRepository::linkIsAddedOnce()
{
    AlergenRepository repository(m_database.db());
    QVERIFY(repository.addFoodAlergen(1, 2));
    QVERIFY(repository.addFoodAlergen(1, 2));
    QCOMPARE(links(), QStringList{"1|2"});
}

void TestAlergenRepository::linkToNothingIsNotStored()
{
    // The statement ignores what it cannot insert, so a food deleted meanwhile is no failure.
    QVERIFY(AlergenRepository(m_database.db()).addFoodAlergen(99, 2));
    QCOMPARE(links(), QStringList());
}

void TestAlergenRepository::oneLinkIsDeleted()
{
    m_database.exec("INSERT INTO via_foodalergen VALUES (1, 1), (1, 2), (2, 1)");
    AlergenRepository repository(m_database.db());
    QVERIFY(repository.deleteFoodAlergen(1, 1));
    QCOMPARE(links(), (QStringList{"1|2", "2|1"}));
    QVERIFY(repository.deleteFoodAlergen(1, 1));
    QCOMPARE(links(), (QStringList{"1|2", "2|1"}));
}

void TestAlergenRepository::allLinksOfAFoodAreDeleted()
{
    m_database.exec("INSERT INTO via_foodalergen VALUES (1, 1), (1, 2), (2, 1)");
    QVERIFY(AlergenRepository(m_database.db()).deleteAllFoodAlergen(1));
    QCOMPARE(links(), QStringList{"2|1"});
}

QTEST_MAIN(TestAlergenRepository)
#include "tst_alergenrepository.moc"
