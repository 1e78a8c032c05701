#include "db/statement.h"
#include "support/testdatabase.h"

#include <QtTest>

#include <memory>

/// The shape of the tables: what every one of them has, what their columns hold, and how their texts sort.
class TestSchema : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void everyTableHasAPrimaryKey();
    void everyTableIsTransactional();
    void varsHasExactlyTwoColumns();
    void settingNamesAreCaseSensitive();
    void characterSets();
    void textIsStoredWhole_data();
    void textIsStoredWhole();
    void fourByteCharactersAreStored();
    void pictureOfAMegabyteIsStoredWhole();
    void newMenuItemIsOpenAndUnlimited();
    void foodTakesAGivenKeyAndGoesOnFromThere();
    void surnamesSortBySlovakRules();
    void planIsReadByIndex_data();
    void planIsReadByIndex();

private:
    QStringList rows(const QString &query) const { return m_database->rows(query.arg(m_database->name())); }

    std::unique_ptr<TestDatabase> m_database;
};

void TestSchema::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestSchema::init()
{
    for (const char *table : {"via_branchmails", "via_suppliermails", "via_orderables", "via_foods", "via_segments",
                              "via_alergens", "via_suppliers", "via_types", "vars", "people"})
        m_database->exec(QStringLiteral("DELETE FROM ") + QLatin1String(table));
    m_database->exec(QStringLiteral("INSERT INTO via_types (typeID, name) VALUES (1, 'Polievka')"));
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (1, 'Jedáleň')"));
    m_database->exec(QStringLiteral("INSERT INTO via_segments (segmentID, name) VALUES (1, 'Obed')"));
    m_database->exec(QStringLiteral("INSERT INTO via_foods (foodID, typeID, name) VALUES (1, 1, 'Vývar')"));
}

void TestSchema::everyTableHasAPrimaryKey()
{
    const QString tables = QStringLiteral("SELECT table_name FROM information_schema.tables WHERE table_schema='%1'"
                                          " ORDER BY table_name");
    QCOMPARE(rows(tables),
             QStringLiteral("admins_people bradm branches brape people vars via_alergens via_branchmails"
                            " via_foodalergen via_foods via_orderables via_orders via_promailsdelay via_segments"
                            " via_supplierbranch via_suppliermails via_suppliers via_types")
                 .split(QLatin1Char(' ')));
    QCOMPARE(rows(QStringLiteral("SELECT table_name FROM information_schema.table_constraints"
                                 " WHERE table_schema='%1' AND constraint_type='PRIMARY KEY' ORDER BY table_name")),
             rows(tables));
}

void TestSchema::everyTableIsTransactional()
{
    QCOMPARE(rows(QStringLiteral("SELECT DISTINCT engine FROM information_schema.tables WHERE table_schema='%1'")),
             QStringList{QStringLiteral("InnoDB")});
}

void TestSchema::varsHasExactlyTwoColumns()
{
    QCOMPARE(rows(QStringLiteral("SELECT column_name FROM information_schema.columns"
                                 " WHERE table_schema='%1' AND table_name='vars' ORDER BY ordinal_position")),
             (QStringList{QStringLiteral("name"), QStringLiteral("value")}));
    QCOMPARE(errorOf(m_database->db(),
                     QStringLiteral("INSERT INTO vars VALUES ('via_shownWeeks', 4) ON DUPLICATE KEY UPDATE value=4 ")),
             QString());
    QCOMPARE(m_database->rows(QStringLiteral("SELECT * FROM vars")), QStringList{QStringLiteral("via_shownWeeks|4")});
}

void TestSchema::settingNamesAreCaseSensitive()
{
    m_database->exec(QStringLiteral("INSERT INTO vars VALUES ('via_orderLimit', '1'), ('VIA_ORDERLIMIT', '2')"));
    QCOMPARE(m_database->value(QStringLiteral("SELECT value FROM vars WHERE name='via_orderLimit'")).toString(),
             QStringLiteral("1"));
}

void TestSchema::characterSets()
{
    QCOMPARE(
        rows(QStringLiteral("SELECT DISTINCT collation_name FROM information_schema.columns"
                            " WHERE table_schema='%1' AND table_name LIKE 'via%%' AND collation_name IS NOT NULL")),
        QStringList{QStringLiteral("utf8mb4_slovak_ci")});
    // An order list names utf8_slovak_ci, which works on texts of that character set only.
    QCOMPARE(rows(QStringLiteral("SELECT DISTINCT collation_name FROM information_schema.columns"
                                 " WHERE table_schema='%1' AND table_name='people' AND collation_name IS NOT NULL")),
             QStringList{QStringLiteral("utf8mb3_slovak_ci")});
}

void TestSchema::textIsStoredWhole_data()
{
    QTest::addColumn<QString>("insert");
    QTest::addColumn<QString>("select");
    QTest::addColumn<QString>("text");

    const QString mail = QString(QLatin1Char('m')).repeated(9990) + QStringLiteral("@b.example");
    const QString slovak // 56 characters: 200 times make more than 10,000
        = QStringLiteral("Ľahký šalát so žltou paprikou, ťahaný syr, ôsmy deň, ŕba, Čoho; ");
    QTest::newRow("supplier mail of 10,000 characters")
        << "INSERT IGNORE INTO via_suppliermails (supplierID, mail) VALUES (1, ?)"
        << "SELECT mail FROM via_suppliermails" << mail;
    QTest::newRow("branch mail of 10,000 characters")
        << "INSERT IGNORE INTO via_branchmails (bid, mail) VALUES (NULL, ?)"
        << "SELECT mail FROM via_branchmails" << mail;
    QTest::newRow("food name") << "UPDATE via_foods SET name=?"
                               << "SELECT name FROM via_foods" << slovak.repeated(200);
    QTest::newRow("food description") << "UPDATE via_foods SET description=?"
                                      << "SELECT description FROM via_foods" << slovak.repeated(200);
    QTest::newRow("supplier name") << "UPDATE via_suppliers SET name=?"
                                   << "SELECT name FROM via_suppliers" << slovak.repeated(200);
    QTest::newRow("shortcut") << "UPDATE via_suppliers SET shortcut=?"
                              << "SELECT shortcut FROM via_suppliers" << slovak.repeated(200);
    QTest::newRow("type name") << "UPDATE via_types SET name=?"
                               << "SELECT name FROM via_types" << slovak.repeated(200);
    QTest::newRow("slot name") << "UPDATE via_segments SET name=?"
                               << "SELECT name FROM via_segments" << slovak.repeated(200);
    QTest::newRow("allergen") << "INSERT INTO via_alergens (title) VALUES (?)"
                              << "SELECT title FROM via_alergens" << slovak.repeated(200);
    QTest::newRow("setting") << "INSERT INTO vars VALUES ('x', ?)"
                             << "SELECT value FROM vars" << slovak.repeated(200);
}

void TestSchema::textIsStoredWhole()
{
    QFETCH(QString, insert);
    QFETCH(QString, select);
    QFETCH(QString, text);
    QSqlQuery query(m_database->db());
    QVERIFY(query.prepare(insert));
    query.addBindValue(text);
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    QVERIFY(query.exec(select));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(), text);
}

void TestSchema::fourByteCharactersAreStored()
{
    const QString name = QStringLiteral("Guláš 🍲 dňa");
    QSqlQuery query(m_database->db());
    QVERIFY(query.exec(QStringLiteral("SET NAMES utf8mb4")));
    QVERIFY(query.prepare(QStringLiteral("UPDATE via_foods SET name=?")));
    query.addBindValue(name);
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    QVERIFY(query.exec(QStringLiteral("SELECT name FROM via_foods")) && query.next());
    QCOMPARE(query.value(0).toString(), name);
    QVERIFY(query.exec(QStringLiteral("SET NAMES utf8")));
}

void TestSchema::pictureOfAMegabyteIsStoredWhole()
{
    QByteArray picture(1 << 20, '\0');
    for (int i = 0; i < picture.size(); ++i)
        picture[i] = char(i * 7 % 256);
    QSqlQuery query(m_database->db());
    QVERIFY(query.prepare(QStringLiteral("UPDATE via_foods SET picture=?")));
    query.addBindValue(picture);
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    QVERIFY(query.exec(QStringLiteral("SELECT picture FROM via_foods")) && query.next());
    QVERIFY(query.value(0).toByteArray() == picture);
}

void TestSchema::newMenuItemIsOpenAndUnlimited()
{
    m_database->exec(
        QStringLiteral("INSERT INTO via_orderables (foodID, segmentID, date) VALUES (1, 1, '2024-05-16')"));
    QCOMPARE(m_database->rows(QStringLiteral("SELECT bid, locked, `limit` FROM via_orderables")),
             QStringList{QStringLiteral("NULL|0|0")});
}

void TestSchema::foodTakesAGivenKeyAndGoesOnFromThere()
{
    QSqlQuery query(m_database->db());
    QVERIFY(query.exec(QStringLiteral("INSERT INTO via_foods (foodID, typeID, name) VALUES (500, 1, 'Guláš')")));
    QVERIFY(query.exec(QStringLiteral("INSERT INTO via_foods (typeID, name) VALUES (1, 'Rezeň')")));
    QCOMPARE(query.lastInsertId().toInt(), 501);
    QCOMPARE(errorOf(m_database->db(),
                     QStringLiteral("INSERT INTO via_foods (foodID, typeID, name) VALUES (500, 1, 'Knedľa')")),
             QStringLiteral("1062"));
}

void TestSchema::surnamesSortBySlovakRules()
{
    m_database->exec(
        QStringLiteral("INSERT INTO people (pid, surname) VALUES (1, 'Iľko'), (2, 'Chovanec'), (3, 'Cíger'),"
                       " (4, 'Hudák'), (5, 'Čierny'), (6, 'Dzian'), (7, 'Ďurica'), (8, 'Žiak'), (9, 'Zeman')"));
    const QString slovak // 56 characters: 200 times make more than 10,000
        = QStringLiteral("Cíger Čierny Ďurica Dzian Hudák Chovanec Iľko Zeman Žiak");
    for (const char *order : {"surname", "surname COLLATE 'utf8_slovak_ci'"}) {
        const QStringList sorted =
            m_database->rows(QStringLiteral("SELECT surname FROM people ORDER BY ") + QLatin1String(order));
        QCOMPARE(sorted.join(QLatin1Char(' ')), slovak);
    }
}

void TestSchema::planIsReadByIndex_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QString>("key");

    QTest::newRow("slot of a branch") << "bid=1 AND date='2024-05-16' AND segmentID=1"
                                      << "week";
    QTest::newRow("slot of all branches") << "bid IS NULL AND date='2024-05-16' AND segmentID=1"
                                          << "week";
    QTest::newRow("day of a branch and of all") << "date='2024-05-16' AND (bid=1 OR bid IS NULL)"
                                                << "week";
    QTest::newRow("slot of any branch") << "date='2024-05-16' AND segmentID=1"
                                        << "day";
    QTest::newRow("months") << "date>='2024-05-01' AND date<='2024-05-05'"
                            << "day";
}

void TestSchema::planIsReadByIndex()
{
    QFETCH(QString, condition);
    QFETCH(QString, key);
    m_database->exec(QStringLiteral("INSERT INTO via_orderables (foodID, bid, segmentID, date)"
                                    " SELECT 1, NULLIF(seq MOD 5, 0), 1, '2024-01-01' + INTERVAL seq DIV 10 DAY"
                                    " FROM seq_1_to_3000"));
    m_database->exec(QStringLiteral("ANALYZE TABLE via_orderables"));
    const QStringList plan =
        m_database->rows(QStringLiteral("EXPLAIN SELECT price, `limit` FROM via_orderables WHERE ") + condition);
    QCOMPARE(plan.size(), 1);
    QCOMPARE(plan.first().split(QLatin1Char('|')).value(5), key);
}

QTEST_GUILESS_MAIN(TestSchema)
#include "tst_schema.moc"
