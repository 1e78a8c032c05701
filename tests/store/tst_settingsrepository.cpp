#include "store/activedays.h"
#include "store/settingsrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestSettingsRepository : public QObject {
    Q_OBJECT

private slots:
    void init() { m_database.clear(); }
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsAreSlots();
    void defaultsWithoutKeys();
    void typedLoads_data();
    void typedLoads();
    void keysAreComparedByCase();
    void typedStores();
    void typedStoresReplace();
    void thirdColumnDefeatsTheTypedStores();
    void removesAllLimits();
    void getsAValue();
    void getsSeveralByPrefix();
    void getsSeveralByName();
    void setsAValue_data();
    void setsAValue();
    void setsSeveral();
    void oneBadEntryOfThree();
    void badEntryAlone();
    void deletesOne();
    void deletesByPrefix();
    void deleteOfAnAbsentKeyIsFalseAndSilent();

private:
    QStringList vars() const { return m_database.rows("SELECT name, value FROM vars ORDER BY name"); }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestSettingsRepository::operationsAreSlots()
{
    const SettingsRepository repository(m_database.db());
    for (const char *slot :
         {"loadCheckState()", "setCheckState(int)", "loadShownWeeks()", "setShownWeeks(int)", "loadOrderLimit()",
          "setOrderLimit(int)", "removeAllOrderableLimits()", "variableGet(QString,QVariant)", "variableGet(QString)",
          "variableGetMultiple(QString)", "variableGetMultiple(QStringList)", "variableSet(QString,QVariant)",
          "variableSetMultiple(QVariantMap)", "variableDel(QString,bool)", "variableDel(QString)"})
        QVERIFY2(repository.metaObject()->indexOfSlot(slot) >= 0, slot);
}

void TestSettingsRepository::defaultsWithoutKeys()
{
    m_database.exec("INSERT INTO vars VALUES ('company', 'x')");
    SettingsRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.loadCheckState(), 2222222);
    QCOMPARE(repository.loadShownWeeks(), 4);
    QCOMPARE(repository.loadOrderLimit(), 0);
    QCOMPARE(log.lines(), QStringList());
}

void TestSettingsRepository::typedLoads_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("value");
    QTest::newRow("number") << "'2020202'" << 2020202;
    QTest::newRow("zero") << "'0'" << 0;
    QTest::newRow("negative") << "'-3'" << -3;
    QTest::newRow("no number") << "'four'" << 0;
    QTest::newRow("decimal") << "'2.5'" << 0;
    QTest::newRow("empty") << "''" << 0;
    QTest::newRow("NULL") << "NULL" << 0;
}

void TestSettingsRepository::typedLoads()
{
    QFETCH(QString, stored);
    QFETCH(int, value);
    m_database.exec(QString("INSERT INTO vars VALUES ('a', '1'), ('via_activeDays', %1), ('via_orderLimit', %1), "
                            "('via_shownWeeks', %1), ('z', '9')")
                        .arg(stored));
    SettingsRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.loadCheckState(), value);
    QCOMPARE(repository.loadShownWeeks(), value);
    QCOMPARE(repository.loadOrderLimit(), value);
    QCOMPARE(log.lines(), QStringList());
}

void TestSettingsRepository::keysAreComparedByCase()
{
    m_database.exec(
        "INSERT INTO vars VALUES ('VIA_ACTIVEDAYS', '1'), ('via_activedays', '3'), ('via_activeDays ', '4')");
    QCOMPARE(SettingsRepository(m_database.db()).loadCheckState(), ActiveDays::defaultCode);
    m_database.exec("DELETE FROM vars");
    m_database.exec("INSERT INTO vars VALUES ('VIA_ACTIVEDAYS', '1'), ('via_activeDays', '2')");
    QCOMPARE(SettingsRepository(m_database.db()).loadCheckState(), 2);
}

void TestSettingsRepository::typedStores()
{
    SettingsRepository repository(m_database.db());
    QVERIFY(repository.setCheckState(22222));
    QVERIFY(repository.setShownWeeks(6));
    QVERIFY(repository.setOrderLimit(2));
    QCOMPARE(vars(), (QStringList{"via_activeDays|22222", "via_orderLimit|2", "via_shownWeeks|6"}));
    QCOMPARE(repository.loadCheckState(), 22222);
    QCOMPARE(repository.loadShownWeeks(), 6);
    QCOMPARE(repository.loadOrderLimit(), 2);
}

void TestSettingsRepository::typedStoresReplace()
{
    m_database.exec(
        "INSERT INTO vars VALUES ('via_activeDays', 'x'), ('via_shownWeeks', 'y'), ('via_orderLimit', 'z')");
    SettingsRepository repository(m_database.db());
    QVERIFY(repository.setCheckState(0));
    QVERIFY(repository.setShownWeeks(-1));
    QVERIFY(repository.setOrderLimit(2147483647));
    QVERIFY(repository.setOrderLimit(2147483647)); // the same value again changes no row and is no failure
    QCOMPARE(vars(), (QStringList{"via_activeDays|0", "via_orderLimit|2147483647", "via_shownWeeks|-1"}));
}

void TestSettingsRepository::thirdColumnDefeatsTheTypedStores()
{
    m_database.exec("ALTER TABLE vars ADD COLUMN extra INT NULL");
    SettingsRepository repository(m_database.db());
    LogCatcher log;
    for (int box = 0; box < 3; ++box)
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa uložiť nastavenie!");
    QVERIFY(!repository.setCheckState(22222));
    QVERIFY(!repository.setShownWeeks(6));
    QVERIFY(!repository.setOrderLimit(2));
    QVERIFY(repository.variableSet("k", 1)); // names its columns
    m_database.exec("ALTER TABLE vars DROP COLUMN extra");
    QCOMPARE(vars(), QStringList{"k|1"});
    QCOMPARE(log.critical().size(), 3);
    QVERIFY(log.critical().at(0).startsWith("SettingsRepository(setCheckState) - SQL ERROR: Column count doesn't"));
    QVERIFY(log.critical().at(1).startsWith("SettingsRepository(setShownWeeks) - SQL ERROR: Column count doesn't"));
    QVERIFY(log.critical().at(2).startsWith("SettingsRepository(orderLimit) - SQL ERROR: Column count doesn't"));
}

void TestSettingsRepository::removesAllLimits()
{
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec("INSERT INTO via_segments (name) VALUES ('s')");
    m_database.exec("INSERT INTO via_foods (typeID, name) VALUES (1, 'f')");
    m_database.exec(
        "INSERT INTO via_orderables (foodID, segmentID, date, `limit`) VALUES (1, 1, '2024-01-04', 5), (1, 1, "
        "'2024-01-04', 0), (1, 1, '2024-01-04', 1)");
    SettingsRepository repository(m_database.db());
    QCOMPARE(repository.removeAllOrderableLimits(), 2);
    QCOMPARE(m_database.value("SELECT SUM(`limit`) FROM via_orderables").toInt(), 0);
    QCOMPARE(repository.removeAllOrderableLimits(), 0);
}

void TestSettingsRepository::getsAValue()
{
    m_database.exec("INSERT INTO vars VALUES ('full', 'čaj'), ('empty', ''), ('null', NULL), ('flag', '1')");
    SettingsRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.variableGet("full"), QVariant("čaj"));
    QCOMPARE(repository.variableGet("full", 7), QVariant("čaj"));
    QCOMPARE(repository.variableGet("empty", "default"), QVariant(""));
    QVERIFY(repository.variableGet("null", "default").isNull());
    QCOMPARE(repository.variableGet("flag", false).toBool(), true);
    QCOMPARE(repository.variableGet("missing", 7), QVariant(7));
    QCOMPARE(repository.variableGet("missing"), QVariant());
    QCOMPARE(repository.variableGet("Full", 7), QVariant(7));
    QCOMPARE(log.lines(), QStringList());
}

void TestSettingsRepository::getsSeveralByPrefix()
{
    m_database.exec("INSERT INTO vars VALUES ('via_a', '1'), ('via_b', '2'), ('viaXc', '3'), ('other_via_', '4')");
    SettingsRepository repository(m_database.db());
    const QVariantMap all{{"via_a", "1"}, {"via_b", "2"}, {"viaXc", "3"}};
    QCOMPARE(repository.variableGetMultiple(QString("via")), all);
    QCOMPARE(repository.variableGetMultiple(QString("via_")), all); // _ stands for any character
    QCOMPARE(repository.variableGetMultiple(QString("via\\_")), (QVariantMap{{"via_a", "1"}, {"via_b", "2"}}));
    QCOMPARE(repository.variableGetMultiple(QString("%_b")), (QVariantMap{{"via_b", "2"}}));
    QCOMPARE(repository.variableGetMultiple(QString("nothing")), QVariantMap());
    QCOMPARE(repository.variableGetMultiple(QString()).size(), 4);
}

void TestSettingsRepository::getsSeveralByName()
{
    m_database.exec("INSERT INTO vars VALUES ('a', '1'), ('b', NULL), ('c', '3')");
    SettingsRepository repository(m_database.db());
    const QVariantMap found = repository.variableGetMultiple(QStringList{"c", "a", "missing"});
    QCOMPARE(found, (QVariantMap{{"a", "1"}, {"c", "3"}}));
    QCOMPARE(repository.variableGetMultiple(QStringList{"b"}).keys(), QStringList{"b"});
    QVERIFY(repository.variableGetMultiple(QStringList{"b"}).value("b").isNull());
    QCOMPARE(repository.variableGetMultiple(QStringList{"missing"}), QVariantMap());
}

void TestSettingsRepository::setsAValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("stored");
    QTest::newRow("text") << QVariant("a'b\\c") << "a'b\\c";
    QTest::newRow("empty") << QVariant("") << "";
    QTest::newRow("true") << QVariant(true) << "1";
    QTest::newRow("false") << QVariant(false) << "0";
    QTest::newRow("int") << QVariant(-5) << "-5";
    QTest::newRow("double") << QVariant(2.5) << "2.5";
    QTest::newRow("nothing") << QVariant() << "NULL";
}

void TestSettingsRepository::setsAValue()
{
    QFETCH(QVariant, value);
    QFETCH(QString, stored);
    m_database.exec("INSERT INTO vars VALUES ('old', 'x'), ('other', 'y')");
    SettingsRepository repository(m_database.db());
    QVERIFY(repository.variableSet("new", value));
    QVERIFY(repository.variableSet("old", value));
    QCOMPARE(vars(), (QStringList{"new|" + stored, "old|" + stored, "other|y"}));
}

void TestSettingsRepository::setsSeveral()
{
    m_database.exec("INSERT INTO vars VALUES ('b', 'x')");
    SettingsRepository repository(m_database.db());
    QVERIFY(repository.variableSetMultiple({{"a", 1}, {"b", "two"}, {"c", true}}));
    QCOMPARE(vars(), (QStringList{"a|1", "b|two", "c|1"}));
    QVERIFY(repository.variableSetMultiple(QVariantMap()));
}

void TestSettingsRepository::oneBadEntryOfThree()
{
    SettingsRepository repository(m_database.db());
    LogCatcher log;
    // The bad one stands between the good ones.
    QVERIFY(!repository.variableSetMultiple({{"a", 1}, {"b" + QString(500, 'x'), 2}, {"c", 3}}));
    QCOMPARE(vars(), (QStringList{"a|1", "c|3"}));
    QCOMPARE(log.lines().size(), 1);
    QVERIFY2(log.critical().value(0).startsWith("SettingsRepository::variableSet ERROR: \"Data too long"),
             qPrintable(log.critical().value(0)));
}

void TestSettingsRepository::badEntryAlone()
{
    LogCatcher log;
    QVERIFY(!SettingsRepository(m_database.db()).variableSet(QString(500, 'x'), 2));
    QCOMPARE(vars(), QStringList());
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.critical().value(0).startsWith("SettingsRepository::variableSet ERROR: \"Data too long"));
}

void TestSettingsRepository::deletesOne()
{
    m_database.exec("INSERT INTO vars VALUES ('via_a', '1'), ('via_ab', '2')");
    QVERIFY(SettingsRepository(m_database.db()).variableDel("via_a"));
    QCOMPARE(vars(), QStringList{"via_ab|2"});
}

void TestSettingsRepository::deletesByPrefix()
{
    m_database.exec("INSERT INTO vars VALUES ('via_a', '1'), ('via_ab', '2'), ('x_via_a', '3')");
    QVERIFY(SettingsRepository(m_database.db()).variableDel("via_a", true));
    QCOMPARE(vars(), QStringList{"x_via_a|3"});
}

void TestSettingsRepository::deleteOfAnAbsentKeyIsFalseAndSilent()
{
    m_database.exec("INSERT INTO vars VALUES ('via_a', '1')");
    SettingsRepository repository(m_database.db());
    LogCatcher log;
    QVERIFY(!repository.variableDel("via"));
    QVERIFY(!repository.variableDel("nothing", true));
    QCOMPARE(vars(), QStringList{"via_a|1"});
    QCOMPARE(log.lines(), QStringList());
}

QTEST_MAIN(TestSettingsRepository)
#include "tst_settingsrepository.moc"
