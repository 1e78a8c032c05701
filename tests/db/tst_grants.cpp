#include "db/statement.h"
#include "support/testdatabase.h"

#include <QtTest>

#include <memory>

/// What the module's account may and may not do with the grants of db/grants.sql.
class TestGrants : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void mayDoWhatTheModuleNeeds_data();
    void mayDoWhatTheModuleNeeds();
    void mayDoNothingElse_data();
    void mayDoNothingElse();

private:
    std::unique_ptr<TestDatabase> m_database;
};

void TestGrants::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    m_database->exec(QStringLiteral("INSERT INTO via_types (typeID, name) VALUES (1, 'Polievka')"));
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (1, 'Jedáleň')"));
    m_database->exec(QStringLiteral("INSERT INTO via_alergens (alergenID, title) VALUES (1, 'Lepok')"));
    m_database->exec(QStringLiteral("INSERT INTO via_segments (segmentID, name) VALUES (1, 'Obed')"));
    m_database->exec(QStringLiteral("INSERT INTO via_foods (foodID, typeID, name) VALUES (1, 1, 'Vývar')"));
    m_database->exec(QStringLiteral("INSERT INTO via_orderables (orderableID, foodID, segmentID, date)"
                                    " VALUES (1, 1, 1, '2024-05-16')"));
}

void TestGrants::mayDoWhatTheModuleNeeds_data()
{
    QTest::addColumn<QString>("statement");

    for (const char *table :
         {"people", "branches", "brape", "bradm", "admins_people", "vars", "via_types", "via_foods", "via_alergens",
          "via_foodalergen", "via_segments", "via_orderables", "via_orders", "via_suppliers", "via_suppliermails",
          "via_branchmails", "via_supplierbranch", "via_promailsdelay"})
        QTest::newRow(table) << QStringLiteral("SELECT * FROM ") + QLatin1String(table);
    const char *const statements[] = {
        "INSERT INTO vars VALUES ('a', 1) ON DUPLICATE KEY UPDATE value=1 ",
        "DELETE FROM vars WHERE name='a'",
        "INSERT INTO via_types (name, position, informative) VALUES ('x', 1, 0)",
        "UPDATE via_types SET position=2 WHERE position=1",
        "DELETE FROM via_types WHERE typeID=2",
        "INSERT INTO via_foods (typeID, supplierID, name, price) VALUES (1, NULL, 'x', 1)",
        "UPDATE via_foods SET name='y', picture=NULL WHERE foodID=1",
        "DELETE FROM via_foods WHERE foodID=2",
        "INSERT INTO via_alergens (title, description) VALUES ('x', 'y')",
        "UPDATE via_alergens SET title='z' WHERE alergenID=1",
        "DELETE FROM via_alergens WHERE alergenID=2",
        "INSERT IGNORE INTO via_foodalergen (foodID, alergenID) VALUES (1, 1)",
        "DELETE FROM via_foodalergen WHERE foodID=1",
        "INSERT INTO via_segments (name, start, stop, position) VALUES ('x', '10:00', '11:00', 1)",
        "UPDATE via_segments SET position=2 WHERE position=1",
        "DELETE FROM via_segments WHERE segmentID=2",
        "INSERT INTO via_orderables (foodID, bid, segmentID, date, `limit`) VALUES (1, NULL, 1, '2024-05-16', 0)",
        "UPDATE via_orderables SET locked=1 WHERE date='2024-05-16'",
        "DELETE FROM via_orderables WHERE orderableID=9",
        "INSERT INTO via_orders (orderableID, uid, quantity, ordered, delivered) VALUES (1, 7, 1, 'x', NULL)",
        "DELETE FROM via_orders WHERE orderableID=1 AND uid=7",
        "INSERT IGNORE INTO via_suppliers (name, description) VALUES ('x', 'y')",
        "UPDATE via_suppliers SET name='z' WHERE supplierID=1",
        "DELETE FROM via_suppliers WHERE supplierID=9",
        "INSERT IGNORE INTO via_suppliermails (supplierID, mail) VALUES (1, 'a@b.example')",
        "UPDATE via_suppliermails SET mail='x' WHERE supplierMailID=1",
        "DELETE FROM via_suppliermails WHERE supplierID=1",
        "INSERT IGNORE INTO via_branchmails (bid, mail) VALUES (NULL, 'a@b.example')",
        "UPDATE via_branchmails SET mail='x' WHERE branchMailID=1",
        "DELETE FROM via_branchmails WHERE branchMailID=1",
        "INSERT IGNORE INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL)",
        "DELETE FROM via_supplierbranch WHERE supplierID=1 AND bid IS NULL",
        "INSERT IGNORE INTO via_promailsdelay (supplierID, sendtime, daysto) VALUES (1, '10:00', 1) ",
        "UPDATE via_promailsdelay SET daysto=2 WHERE proMailDelayID=1",
        "DELETE FROM via_promailsdelay WHERE supplierID=1 ",
        "SET SESSION sql_mode = REPLACE(@@sql_mode, 'ONLY_FULL_GROUP_BY', '')",
        "START TRANSACTION",
        "ROLLBACK",
    };
    for (const char *statement : statements)
        QTest::newRow(statement) << QString::fromUtf8(statement);
}

void TestGrants::mayDoWhatTheModuleNeeds()
{
    QFETCH(QString, statement);
    QCOMPARE(errorOf(m_database->db(), statement), QString());
}

void TestGrants::mayDoNothingElse_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("error");

    const QString table = QStringLiteral("1142");
    const QString database = QStringLiteral("1044");
    QTest::newRow("write people") << "INSERT INTO people (pid) VALUES (1)" << table;
    QTest::newRow("change people") << "UPDATE people SET status=0" << table;
    QTest::newRow("delete people") << "DELETE FROM people" << table;
    QTest::newRow("write branches") << "INSERT INTO branches (name) VALUES ('x')" << table;
    QTest::newRow("change branches") << "UPDATE branches SET name='x'" << table;
    QTest::newRow("delete branches") << "DELETE FROM branches" << table;
    QTest::newRow("person to branch") << "INSERT INTO brape VALUES (1, 1)" << table;
    QTest::newRow("right on branch") << "INSERT INTO bradm VALUES (1, 1)" << table;
    QTest::newRow("right on person") << "INSERT INTO admins_people VALUES (1, 1)" << table;
    QTest::newRow("rights away") << "DELETE FROM bradm" << table;
    QTest::newRow("change an order") << "UPDATE via_orders SET quantity=2" << table;
    QTest::newRow("change an allergen link") << "UPDATE via_foodalergen SET alergenID=2" << table;
    QTest::newRow("change a branch link") << "UPDATE via_supplierbranch SET bid=2" << table;
    QTest::newRow("drop a table") << "DROP TABLE via_orders" << table;
    QTest::newRow("empty a table") << "TRUNCATE TABLE via_orders" << table;
    QTest::newRow("alter a table") << "ALTER TABLE via_foods ADD COLUMN x INT" << table;
    QTest::newRow("create a table") << "CREATE TABLE via_new (x INT)" << table;
    QTest::newRow("create an index") << "CREATE INDEX x ON via_foods (price)" << table;
    QTest::newRow("create a view") << "CREATE VIEW v AS SELECT 1" << table;
    QTest::newRow("lock a table") << "LOCK TABLES via_orders READ" << database;
    QTest::newRow("accounts") << "SELECT * FROM mysql.global_priv" << table;
    QTest::newRow("another database") << "USE mysql" << database;
    QTest::newRow("create a database") << "CREATE DATABASE vianda_tst_grants_new" << database;
    QTest::newRow("create an account") << "CREATE USER 'vianda2'@'localhost'"
                                       << "1227";
    QTest::newRow("write a file") << "SELECT 1 INTO OUTFILE '/tmp/vianda-tst-grants'"
                                  << "1227";
    QTest::newRow("server setting") << "SET GLOBAL max_connections = 5"
                                    << "1227";
}

void TestGrants::mayDoNothingElse()
{
    QFETCH(QString, statement);
    QFETCH(QString, error);
    QCOMPARE(errorOf(m_database->db(), statement), error);
}

QTEST_GUILESS_MAIN(TestGrants)
#include "tst_grants.moc"
