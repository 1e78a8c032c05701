#include "db/statement.h"
#include "support/testdatabase.h"

#include <QtTest>

#include <memory>

/// The keys of the schema as the module's own connection meets them: what a delete is refused for, what goes along with
/// it, and which rows may not stand twice.
class TestSchemaKeys : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void deleteIsRefusedWhileRowsDepend_data();
    void deleteIsRefusedWhileRowsDepend();
    void rowsThatGoAlong_data();
    void rowsThatGoAlong();
    void danglingReferenceIsRefused_data();
    void danglingReferenceIsRefused();
    void pairStandsOnce_data();
    void pairStandsOnce();
    void otherOwnerMayHaveTheSame_data();
    void otherOwnerMayHaveTheSame();
    void suppliersMayShareAName();

private:
    int count(const QString &table) const
    {
        return m_database->value(QStringLiteral("SELECT COUNT(*) FROM ") + table).toInt();
    }

    std::unique_ptr<TestDatabase> m_database;
};

void TestSchemaKeys::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestSchemaKeys::init()
{
    // Rows below have their keys, so emptying the tables is enough, and faster than starting the keys anew.
    for (const char *table : {"via_promailsdelay", "via_branchmails", "via_suppliermails", "via_supplierbranch",
                              "via_orders", "via_orderables", "via_foodalergen", "via_foods", "via_segments",
                              "via_alergens", "via_suppliers", "via_types", "vars"})
        m_database->exec(QStringLiteral("DELETE FROM ") + QLatin1String(table));
    const char *const rows[] = {
        "INSERT INTO via_types (typeID, name, position) VALUES (1, 'Polievka', 1), (2, 'Hlavné jedlo', 2)",
        "INSERT INTO via_suppliers (supplierID, name) VALUES (1, 'Jedáleň'), (2, 'Pekáreň'), (3, 'Bufet')",
        "INSERT INTO via_alergens (alergenID, title) VALUES (1, 'Lepok'), (2, 'Zeler')",
        "INSERT INTO via_segments (segmentID, name, position) VALUES (1, 'Obed', 1), (2, 'Večera', 2)",
        "INSERT INTO via_foods (foodID, typeID, supplierID, name) VALUES (1, 1, 1, 'Vývar'), (2, 1, 1, 'Držková')",
        "INSERT INTO via_foodalergen (foodID, alergenID) VALUES (1, 1)",
        "INSERT INTO via_orderables (orderableID, foodID, segmentID, date) VALUES (1, 1, 1, '2024-05-16')",
        "INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date) VALUES (2, 1, 3, 1, '2024-05-16')",
        "INSERT INTO via_orders (orderableID, uid, quantity) VALUES (1, 7, 1)",
        "INSERT INTO via_supplierbranch (supplierID, bid) VALUES (2, NULL), (2, 5)",
        "INSERT INTO via_suppliermails (supplierID, mail) VALUES (3, 'a@b.example')",
        "INSERT INTO via_branchmails (bid, mail) VALUES (NULL, 'a@b.example'), (5, 'c@d.example')",
        "INSERT INTO via_promailsdelay (supplierID, sendtime) VALUES (3, '10:00')",
    };
    for (const char *row : rows)
        m_database->exec(QString::fromUtf8(row));
}

void TestSchemaKeys::deleteIsRefusedWhileRowsDepend_data()
{
    QTest::addColumn<QString>("remove");
    QTest::addColumn<QString>("dependents");

    QTest::newRow("type with foods") << "DELETE FROM via_types WHERE typeID=1"
                                     << "UPDATE via_foods SET typeID=2";
    QTest::newRow("supplier with foods") << "DELETE FROM via_suppliers WHERE supplierID=1"
                                         << "UPDATE via_foods SET supplierID=NULL";
    QTest::newRow("allergen of a food") << "DELETE FROM via_alergens WHERE alergenID=1"
                                        << "DELETE FROM via_foodalergen";
    QTest::newRow("food on a menu") << "DELETE FROM via_foods WHERE foodID=1"
                                    << "UPDATE via_orderables SET foodID=2";
    QTest::newRow("service slot with a menu") << "DELETE FROM via_segments WHERE segmentID=1"
                                              << "UPDATE via_orderables SET segmentID=2";
    QTest::newRow("menu item with orders") << "DELETE FROM via_orderables WHERE orderableID=1"
                                           << "DELETE FROM via_orders";
    QTest::newRow("supplier of a branch") << "DELETE FROM via_suppliers WHERE supplierID=2"
                                          << "DELETE FROM via_supplierbranch";
}

void TestSchemaKeys::deleteIsRefusedWhileRowsDepend()
{
    QFETCH(QString, remove);
    QFETCH(QString, dependents);
    const QString table = remove.section(QLatin1Char(' '), 2, 2);
    const int before = count(table);

    QCOMPARE(errorOf(m_database->db(), remove), QStringLiteral("1451"));
    QCOMPARE(count(table), before);

    m_database->exec(dependents);
    QCOMPARE(errorOf(m_database->db(), remove), QString());
    QCOMPARE(count(table), before - 1);
}

void TestSchemaKeys::rowsThatGoAlong_data()
{
    QTest::addColumn<QString>("remove");
    QTest::addColumn<QString>("table");

    QTest::newRow("allergens of a food") << "DELETE FROM via_foods WHERE foodID=2"
                                         << "via_foodalergen";
    QTest::newRow("mails of a supplier") << "DELETE FROM via_suppliers WHERE supplierID=3"
                                         << "via_suppliermails";
    QTest::newRow("send times of a supplier") << "DELETE FROM via_suppliers WHERE supplierID=3"
                                              << "via_promailsdelay";
}

void TestSchemaKeys::rowsThatGoAlong()
{
    QFETCH(QString, remove);
    QFETCH(QString, table);
    m_database->exec(QStringLiteral("UPDATE via_foodalergen SET foodID=2"));
    QCOMPARE(count(table), 1);
    QCOMPARE(errorOf(m_database->db(), remove), QString());
    QCOMPARE(count(table), 0);
}

void TestSchemaKeys::danglingReferenceIsRefused_data()
{
    QTest::addColumn<QString>("insert");

    QTest::newRow("food of no type") << "INSERT INTO via_foods (typeID, name) VALUES (99, 'x')";
    QTest::newRow("food of no supplier") << "INSERT INTO via_foods (typeID, supplierID, name) VALUES (1, 99, 'x')";
    QTest::newRow("allergen of no food") << "INSERT INTO via_foodalergen VALUES (99, 1)";
    QTest::newRow("no allergen") << "INSERT INTO via_foodalergen VALUES (1, 99)";
    QTest::newRow("item of no food")
        << "INSERT INTO via_orderables (foodID, segmentID, date) VALUES (99, 1, '2024-05-16')";
    QTest::newRow("item of no slot")
        << "INSERT INTO via_orderables (foodID, segmentID, date) VALUES (1, 99, '2024-05-16')";
    QTest::newRow("order of no item") << "INSERT INTO via_orders (orderableID, uid, quantity) VALUES (99, 7, 1)";
    QTest::newRow("link of no supplier") << "INSERT INTO via_supplierbranch (supplierID, bid) VALUES (99, 1)";
    QTest::newRow("mail of no supplier") << "INSERT INTO via_suppliermails (supplierID, mail) VALUES (99, 'x')";
    QTest::newRow("send time of no supplier") << "INSERT INTO via_promailsdelay (supplierID) VALUES (99)";
}

void TestSchemaKeys::danglingReferenceIsRefused()
{
    QFETCH(QString, insert);
    QCOMPARE(errorOf(m_database->db(), insert), QStringLiteral("1452"));
}

void TestSchemaKeys::pairStandsOnce_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("row");

    QTest::newRow("food and allergen") << "via_foodalergen (foodID, alergenID)"
                                       << "(1, 1)";
    QTest::newRow("supplier and branch") << "via_supplierbranch (supplierID, bid)"
                                         << "(2, 5)";
    QTest::newRow("supplier and all branches") << "via_supplierbranch (supplierID, bid)"
                                               << "(2, NULL)";
    QTest::newRow("mail of a supplier") << "via_suppliermails (supplierID, mail)"
                                        << "(3, 'a@b.example')";
    QTest::newRow("mail of a branch") << "via_branchmails (bid, mail)"
                                      << "(5, 'c@d.example')";
    QTest::newRow("mail of all branches") << "via_branchmails (bid, mail)"
                                          << "(NULL, 'a@b.example')";
    QTest::newRow("setting") << "vars (name, value)"
                             << "('via_orderLimit', '2')";
}

void TestSchemaKeys::pairStandsOnce()
{
    QFETCH(QString, table);
    QFETCH(QString, row);
    m_database->exec(QStringLiteral("INSERT IGNORE INTO vars VALUES ('via_orderLimit', '1')"));
    const QString name = table.section(QLatin1Char(' '), 0, 0);
    const int before = count(name);

    QCOMPARE(errorOf(m_database->db(), QStringLiteral("INSERT IGNORE INTO %1 VALUES %2").arg(table, row)), QString());
    QCOMPARE(count(name), before);
    QCOMPARE(errorOf(m_database->db(), QStringLiteral("INSERT INTO %1 VALUES %2").arg(table, row)),
             QStringLiteral("1062"));
    QCOMPARE(count(name), before);
}

void TestSchemaKeys::otherOwnerMayHaveTheSame_data()
{
    QTest::addColumn<QString>("insert");

    QTest::newRow("mail of another supplier")
        << "INSERT INTO via_suppliermails (supplierID, mail) VALUES (1, 'a@b.example')";
    QTest::newRow("mail of another branch") << "INSERT INTO via_branchmails (bid, mail) VALUES (6, 'c@d.example')";
    QTest::newRow("mail of all branches") << "INSERT INTO via_branchmails (bid, mail) VALUES (NULL, 'c@d.example')";
    QTest::newRow("another branch of a supplier") << "INSERT INTO via_supplierbranch (supplierID, bid) VALUES (2, 6)";
    QTest::newRow("same food twice in a slot")
        << "INSERT INTO via_orderables (foodID, bid, segmentID, date) VALUES (1, 3, 1, '2024-05-16')";
}

void TestSchemaKeys::otherOwnerMayHaveTheSame()
{
    QFETCH(QString, insert);
    QCOMPARE(errorOf(m_database->db(), insert), QString());
}

void TestSchemaKeys::suppliersMayShareAName()
{
    const QString insert = QStringLiteral("INSERT IGNORE INTO via_suppliers (name, shortcut) VALUES ('Jedáleň', 'J')");
    QCOMPARE(errorOf(m_database->db(), insert), QString());
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_suppliers WHERE name='Jedáleň'")).toInt(), 2);
}

QTEST_GUILESS_MAIN(TestSchemaKeys)
#include "tst_schemakeys.moc"
