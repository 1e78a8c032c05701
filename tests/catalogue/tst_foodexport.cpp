#include "catalogue/csvrow.h"
#include "catalogue/foodexport.h"
#include "catalogue/foodimport.h"
#include "cataloguedata.h"
#include "models/foodmodel.h"
#include "models/segmentmodel.h"
#include "models/suppliermodel.h"
#include "models/typemodel.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#include <csignal>
#include <memory>

#include <sys/resource.h>

namespace {

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

/// The export of foods: the table, the file, and the way back.
class TestFoodExport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();

    void table();
    void tableOfAnEmptyCatalogue();
    void failureIsTold();
    void readsTheDefaultConnection();
    void fileIsWritten();
    void fileIsReplacedWhole();
    void unwritableTargets_data();
    void unwritableTargets();
    void fullDiskLeavesTheOldFile();
    void roundTrip();
    void quotesDoNotRoundTrip();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFoodExport::init()
{
    fillCatalogue(*m_database);
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestFoodExport::table()
{
    const FoodExport::Table table = FoodExport::loadTable();
    QVERIFY(!table.error.isValid());
    QCOMPARE(table.rows.size(), 4);
    QCOMPARE(
        table.rows.at(0),
        (QStringList{"id", "dodavatel", "typ", "nazov", "popis", "cena", "alergeny", "datum", "vydaj", "stredisko"}));
    QCOMPARE(table.rows.at(1),
             (QStringList{"\"1\"", "\"Jedáleň\"", "\"Polievky\"", "\"Polievka dňa\"", "\"s kuracím mäsom\"", "\"1.5\"",
                          "\"1, 7\""}));
    QCOMPARE(table.rows.at(3),
             (QStringList{"\"3\"", "\"Bistro\"", "\"Hlavné jedlá\"", "\"Guláš\"", "\"\"", "\"3\"", "\" \""}));
}

void TestFoodExport::tableOfAnEmptyCatalogue()
{
    m_database->clear();
    const FoodExport::Table table = FoodExport::loadTable();
    QVERIFY(!table.error.isValid());
    QCOMPARE(table.rows.size(), 1);
}

void TestFoodExport::failureIsTold()
{
    m_database->exec(QStringLiteral("RENAME TABLE via_foodalergen TO away"));
    const FoodExport::Table table = FoodExport::loadTable();
    m_database->exec(QStringLiteral("RENAME TABLE away TO via_foodalergen"));
    QVERIFY(table.error.isValid());
    QCOMPARE(table.rows.size(), 1);
}

void TestFoodExport::readsTheDefaultConnection()
{
    const TestDatabase other(QStringLiteral("other"));
    other.exec(QStringLiteral("INSERT INTO via_types (typeID, name) VALUES (1, 'x')"));
    other.exec(QStringLiteral("INSERT INTO via_foods (typeID, name) VALUES (1, 'not this one')"));
    QCOMPARE(FoodExport::loadTable().rows.size(), 4);
}

void TestFoodExport::fileIsWritten()
{
    QVERIFY(FoodExport::writeFile(path("jedla.csv"), {{"id", "nazov"}, {"\"1\"", "\"Guláš, \nostrý\""}}));
    QCOMPARE(contents(path("jedla.csv")), QByteArray("id,nazov\n\"1\",\"Guláš, \nostrý\"\n"));
}

void TestFoodExport::fileIsReplacedWhole()
{
    QVERIFY(FoodExport::writeFile(path("jedla.csv"), {{"a long first file"}, {"with more"}}));
    QVERIFY(FoodExport::writeFile(path("jedla.csv"), {{"b"}}));
    QCOMPARE(contents(path("jedla.csv")), QByteArray("b\n"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"jedla.csv"});
}

void TestFoodExport::unwritableTargets_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no such folder") << "nowhere/jedla.csv";
    QTest::newRow("a folder") << ".";
    QTest::newRow("name too long") << QString(300, QLatin1Char('x'));
}

void TestFoodExport::unwritableTargets()
{
    QFETCH(QString, name);
    QVERIFY(!FoodExport::writeFile(path(name), {{"a"}}));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

/// A limit on the size of files stands for the full disk: writing stops half-way.
void TestFoodExport::fullDiskLeavesTheOldFile()
{
    QVERIFY(FoodExport::writeFile(path("jedla.csv"), {{"old"}}));
    QList<QStringList> rows;
    for (int row = 0; row < 20000; ++row)
        rows.append({QStringLiteral("%1").arg(row, 100)});
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 100000;
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const bool written = FoodExport::writeFile(path("jedla.csv"), rows);
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, handler);
    QVERIFY(!written);
    QCOMPARE(contents(path("jedla.csv")), QByteArray("old\n"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"jedla.csv"});
}

void TestFoodExport::roundTrip()
{
    m_database->exec(
        QStringLiteral("UPDATE via_foods SET description='jemné,\n\nso \\\\ šľahačkou <b>%1</b>', price=2.05 "
                       "WHERE foodID=2"));
    const char *const query = "SELECT foodID, typeID, supplierID, name, IFNULL(description, ''), price, picture FROM "
                              "via_foods ORDER BY foodID";
    const QStringList before = m_database->rows(query);
    QVERIFY(FoodExport::writeFile(path("jedla.csv"), FoodExport::loadTable().rows));
    m_database->exec(QStringLiteral("UPDATE via_foods SET description='changed', price=99, typeID=1"));

    SupplierModel suppliers(m_database->db());
    suppliers.loadAllSuppliers();
    const TypeModel types(m_database->db());
    FoodModel foods(m_database->db());
    foods.refresh();
    SegmentModel segments(m_database->db());
    FoodImport foodImport(m_database->db(), suppliers, types, &foods, &segments);
    QFile file(path("jedla.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream in(&file);
    foodImport.run(in);
    QVERIFY(foodImport.summary().contains(QStringLiteral("Počet zapísaných jedál: 0 \nPočet duplikátov jedál: 3 \n")));
    QCOMPARE(m_database->rows(query), before);
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_foodalergen")).toInt(), 0);
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_orderables")).toInt(), 0);
}

void TestFoodExport::quotesDoNotRoundTrip()
{
    m_database->exec(QStringLiteral("UPDATE via_foods SET description='tzv. \"ostrý, pravý\" guláš' WHERE foodID=3"));
    QVERIFY(FoodExport::writeFile(path("jedla.csv"), FoodExport::loadTable().rows));
    QVERIFY(contents(path("jedla.csv")).contains("\"tzv. \"ostrý, pravý\" guláš\""));
    QFile file(path("jedla.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream in(&file);
    QStringList row;
    while (Csv::readRow(in, &row) && row.at(0) != QLatin1String("3")) { }
    QCOMPARE(row, (QStringList{"3", "Bistro", "Hlavné jedlá", "Guláš", "tzv. ostrý", " pravý guláš", "3", " "}));
}

QTEST_MAIN(TestFoodExport)
#include "tst_foodexport.moc"
