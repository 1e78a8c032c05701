#include "catalogue/foodimport.h"
#include "cataloguedata.h"
#include "models/foodmodel.h"
#include "models/segmentmodel.h"
#include "models/suppliermodel.h"
#include "models/typemodel.h"
#include "session/session.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"

#include <QSignalSpy>
#include <QSqlQuery>
#include <QTextStream>
#include <QtTest>

#include <memory>

namespace {

/// The models of a page and one run over a text of records behind a header.
struct Run {
    explicit Run(const QSqlDatabase &db)
        : suppliers(db)
        , types(db)
        , foods(db)
        , segments(db)
        , database(db)
    {
        suppliers.loadAllSuppliers();
        foods.refresh();
    }

    QString read(const QString &records) { return readFile(QStringLiteral("any header\n") + records); }
    QString readFile(QString text)
    {
        QTextStream in(&text);
        FoodImport foodImport(database, suppliers, types, &foods, &segments);
        foodImport.run(in);
        return foodImport.summary();
    }

    SupplierModel suppliers;
    TypeModel types;
    FoodModel foods;
    SegmentModel segments;
    QSqlDatabase database;
};

QString summary(int written, int duplicates, const QString &failed, int itemDuplicates, const QString &itemsFailed,
                const QString &faults)
{
    return QStringLiteral("Import dokončený. \n\nPočet zapísaných jedál: %1 \nPočet duplikátov jedál: %2 \n%3 \nPočet "
                          "zapísaných položiek menu: 0 \nPočet duplikátov položiek menu: %4 \n%5 \n%6")
        .arg(written)
        .arg(duplicates)
        .arg(failed)
        .arg(itemDuplicates)
        .arg(itemsFailed, faults);
}

const char *const foodsQuery =
    "SELECT foodID, typeID, supplierID, name, description, price, HEX(picture) FROM via_foods ORDER BY foodID";

} // namespace

/// The import of foods: what is found, counted, written and told.
class TestFoodImport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { fillCatalogue(*m_database); }

    void emptyFiles_data();
    void emptyFiles();
    void newFoodIsAdded();
    void knownFoodIsOverwritten();
    void nameAloneKnowsAFood();
    void firstOfEqualNamesCounts();
    void secondRecordOfANameIsADuplicate();
    void foodOfAnotherWorkstationIsFoundFromTheSecondRecord();
    void faults_data();
    void faults();
    void menuPart_data();
    void menuPart();
    void rowNumbersCountRecords();
    void prices_data();
    void prices();
    void hostileText();
    void failedInsertIsCountedAndNotFound();
    void tooLongNameIsRefused();
    void logLines();
    void debugLevelLogsTheRow();
    void modelsAreFreshAfterwards();
    void picturesAreNotRead();

private:
    std::unique_ptr<TestDatabase> m_database;
};

void TestFoodImport::emptyFiles_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("header only") << "id,dodavatel";
    QTest::newRow("header with line feed") << "id,dodavatel\n";
    QTest::newRow("header open in quotes") << "id,\"dodavatel\n1,Bistro,Polievky,A,,1,\n";
}

void TestFoodImport::emptyFiles()
{
    QFETCH(QString, text);
    QCOMPARE(Run(m_database->db()).readFile(text), summary(0, 0, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_foods")).toInt(), 3);
}

void TestFoodImport::newFoodIsAdded()
{
    QCOMPARE(
        Run(m_database->db()).read(QStringLiteral("99,Bistro,Polievky,Boršč,\"s repou,\nteplý\",\"2,40\",\"1, 3\"")),
        summary(1, 0, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->rows(foodsQuery).constLast(), QStringLiteral("4|1|5|Boršč|s repou,\nteplý|2.4|NULL"));
    QCOMPARE(m_database->rows(QStringLiteral("SELECT * FROM via_foodalergen WHERE foodID=4")), QStringList());
}

void TestFoodImport::knownFoodIsOverwritten()
{
    QCOMPARE(Run(m_database->db()).read(QStringLiteral("1,Bistro,Hlavné jedlá,Polievka dňa,nová,2,\"1, 7\"")),
             summary(0, 1, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->rows(foodsQuery).constFirst(),
             QStringLiteral("1|2|5|Polievka dňa|nová|2|0102")); // with its picture
    QCOMPARE(m_database->rows(QStringLiteral("SELECT foodID, alergenID FROM via_foodalergen")), QStringList{"2|3"});
}

void TestFoodImport::nameAloneKnowsAFood()
{
    Run run(m_database->db());
    QCOMPARE(run.read(QStringLiteral("3,Bistro,Polievky,Rezeň,,5,\n2,Bistro,Polievky,rezeň,,6,")),
             summary(1, 1, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->rows(foodsQuery).mid(1),
             (QStringList{"2|1|5|Rezeň||5|NULL", "3|2|5|Guláš|NULL|3|NULL", "4|1|5|rezeň||6|NULL"}));
}

void TestFoodImport::firstOfEqualNamesCounts()
{
    m_database->exec(QStringLiteral("UPDATE via_foods SET name='Guláš' WHERE foodID=2"));
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (9, 'Bistro')"));
    m_database->exec(QStringLiteral("INSERT INTO via_types (typeID, name, position) VALUES (3, 'Polievky', 3)"));
    Run(m_database->db()).read(QStringLiteral(",Bistro,Polievky,Guláš,prvý,1,"));
    QCOMPARE(m_database->rows(foodsQuery).mid(1), (QStringList{"2|1|5|Guláš|prvý|1|NULL", "3|2|5|Guláš|NULL|3|NULL"}));
}

void TestFoodImport::secondRecordOfANameIsADuplicate()
{
    QCOMPARE(Run(m_database->db())
                 .read(QStringLiteral(",Bistro,Polievky,Boršč,a,1,\n,Bistro,Polievky,Kapustnica,b,1,\n"
                                      ",Jedáleň,Polievky,Boršč,c,2,\n,Bistro,Polievky,Kapustnica,d,3,\n")),
             summary(2, 2, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->rows(foodsQuery).mid(3), (QStringList{"4|1|4|Boršč|c|2|NULL", "5|1|5|Kapustnica|d|3|NULL"}));
}

void TestFoodImport::foodOfAnotherWorkstationIsFoundFromTheSecondRecord()
{
    Run run(m_database->db());
    m_database->exec(QStringLiteral("INSERT INTO via_foods (foodID, typeID, name) VALUES (8, 1, 'A'), (9, 1, 'B')"));
    QCOMPARE(run.read(QStringLiteral(",Bistro,Polievky,A,,1,\n,Bistro,Polievky,B,,1,\n")),
             summary(1, 1, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->rows(QStringLiteral("SELECT foodID, name FROM via_foods WHERE foodID>3 ORDER BY foodID")),
             (QStringList{"8|A", "9|B", "10|A"}));
}

void TestFoodImport::faults_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("expected");
    const QString supplier = QStringLiteral("V riadku 2 je nesprávne vyplnený dodávateľ.\n");
    const QString type = QStringLiteral("V riadku 2 je nesprávne vyplnený typ jedla.\n");
    const QString failed = QStringLiteral("Nepodarilo sa importovať 1 jedál. \n");
    QTest::newRow("supplier") << ",bistro,Polievky,A,,1," << summary(0, 0, failed, 0, QString(), supplier);
    QTest::newRow("type") << ",Bistro,,A,,1," << summary(0, 0, failed, 0, QString(), type);
    QTest::newRow("both count once") << ",,Polievka,A,,1," << summary(0, 0, failed, 0, QString(), supplier + type);
    QTest::newRow("six fields") << ",,,A,,1" << summary(0, 0, QString(), 0, QString(), QString());
    QTest::newRow("empty line") << "" << summary(0, 0, QString(), 0, QString(), QString());
    QTest::newRow("last field open") << ",,,A,,1,\"x" << summary(0, 0, QString(), 0, QString(), QString());
}

void TestFoodImport::faults()
{
    QFETCH(QString, record);
    QTEST(Run(m_database->db()).read(record), "expected");
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_foods")).toInt(), 3);
}

void TestFoodImport::menuPart_data()
{
    QTest::addColumn<QString>("fields"); // from the seventh on
    QTest::addColumn<int>("duplicates");
    QTest::addColumn<QString>("faults");
    const QString date = QStringLiteral("V riadku 2 je nesprávne vyplnený dátum.\n");
    const QString slot = QStringLiteral("V riadku 2 je nesprávne vyplnený výdaj.\n");
    const QString branch = QStringLiteral("V riadku 2 je nesprávne vyplnené stredisko.\n");
    QTest::newRow("all branches") << ",2031-05-14,Obed," << 1 << "";
    QTest::newRow("a branch") << ",2031-05-14,Obed,Nitra" << 1 << "";
    QTest::newRow("more fields") << ",2031-05-14,Obed,Nitra,x,y" << 1 << "";
    QTest::newRow("nine fields") << ",2031-05-14,Obed" << 0 << "";
    QTest::newRow("empty date and slot") << ",,,nowhere" << 0 << "";
    QTest::newRow("date empty") << ",,Obed," << 0 << date;
    QTest::newRow("date in another form") << ",14.5.2031,Obed," << 0 << date;
    QTest::newRow("no such day") << ",2031-02-29,Obed," << 0 << date;
    QTest::newRow("slot empty") << ",2031-05-14,," << 0 << slot;
    QTest::newRow("slot unknown") << ",2031-05-14,obed,Nitra" << 0 << slot;
    QTest::newRow("branch unknown") << ",2031-05-14,Obed,Brno" << 0 << branch;
    QTest::newRow("all wrong") << ",x,y,z" << 0 << date + slot + branch;
}

void TestFoodImport::menuPart()
{
    QFETCH(QString, fields);
    QFETCH(int, duplicates);
    QFETCH(QString, faults);
    const QString failed =
        faults.isEmpty() ? QString() : QStringLiteral("Nepodarilo sa importovať 1 položiek menu. \n");
    QCOMPARE(Run(m_database->db()).read(QStringLiteral(",Bistro,Polievky,Boršč,,1,") + fields),
             summary(1, 0, QString(), duplicates, failed, faults));
    // A record whose food cannot be written is checked for the menu all the same.
    QCOMPARE(Run(m_database->db()).read(QStringLiteral(",nobody,Polievky,Boršč,,1,") + fields),
             summary(0, 0, QStringLiteral("Nepodarilo sa importovať 1 jedál. \n"), duplicates, failed,
                     QStringLiteral("V riadku 2 je nesprávne vyplnený dodávateľ.\n") + faults));
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_orderables")).toInt(), 0);
}

void TestFoodImport::rowNumbersCountRecords()
{
    QCOMPARE(Run(m_database->db())
                 .read(QStringLiteral("too,short\n,Bistro,Polievky,A,\"1\n2\n3\",1,\n\n,x,Polievky,B,,1,\n"
                                      ",x,y,C,,1,,?,Obed,\n")),
             summary(1, 0, QStringLiteral("Nepodarilo sa importovať 2 jedál. \n"), 0,
                     QStringLiteral("Nepodarilo sa importovať 1 položiek menu. \n"),
                     QStringLiteral("V riadku 5 je nesprávne vyplnený dodávateľ.\n"
                                    "V riadku 6 je nesprávne vyplnený dodávateľ.\n"
                                    "V riadku 6 je nesprávne vyplnený typ jedla.\n"
                                    "V riadku 6 je nesprávne vyplnený dátum.\n")));
}

void TestFoodImport::prices_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("price");
    QTest::newRow("comma") << "\"3,75\"" << 3.75;
    QTest::newRow("point") << "3.75" << 3.75;
    QTest::newRow("whole") << "4" << 4.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("text") << "abc" << 0.0;
    QTest::newRow("currency") << "3.75 €" << 0.0;
    QTest::newRow("thousands") << "\"1,234,5\"" << 0.0;
    QTest::newRow("not a number") << "nan" << 0.0;
    QTest::newRow("infinite") << "inf" << 0.0;
    QTest::newRow("huge") << "1e400" << 0.0;
    QTest::newRow("negative") << "-1.5" << -1.5;
}

void TestFoodImport::prices()
{
    QFETCH(QString, text);
    Run(m_database->db()).read(QStringLiteral(",Bistro,Polievky,Boršč,,") + text + QLatin1Char(','));
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_foods")).toInt(), 4);
    QTEST(m_database->value(QStringLiteral("SELECT price FROM via_foods WHERE foodID=4")).toDouble(), "price");
}

void TestFoodImport::hostileText()
{
    const QString name =
        QString::fromUtf8("<b>%1</b> \\ ' ; DROP TABLE via_foods; -- \xf0\x9f\x8d\x94 \xd7\xa9\xd7\x9c");
    const QString description = QString(10000, QChar(0x17e)) + QStringLiteral("%1%7\t\r");
    Run run(m_database->db());
    const QString record =
        QStringLiteral(",Bistro,Polievky,") + name + QLatin1Char(',') + description + QStringLiteral(",1,\n");
    QCOMPARE(run.read(record + record), summary(1, 1, QString(), 0, QString(), QString()));
    QCOMPARE(m_database->value(QStringLiteral("SELECT name FROM via_foods WHERE foodID=4")).toString(), name);
    QCOMPARE(m_database->value(QStringLiteral("SELECT description FROM via_foods WHERE foodID=4")).toString(),
             description);
    QCOMPARE(run.foods.rowCount(), 4);
}

void TestFoodImport::failedInsertIsCountedAndNotFound()
{
    Run run(m_database->db());
    m_database->exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON via_foods FOR EACH ROW SIGNAL SQLSTATE "
                                    "'45000' SET MESSAGE_TEXT='refused'"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať jedlo!"));
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať jedlo!"));
    const QString told = run.read(QStringLiteral(",Bistro,Polievky,A,,1,\n,Bistro,Polievky,A,,1,\n"));
    m_database->exec(QStringLiteral("DROP TRIGGER refuse"));
    BOXES_DONE(boxes);
    QCOMPARE(told, summary(2, 0, QString(), 0, QString(), QString())); // counted before the write
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_foods")).toInt(), 3);
}

void TestFoodImport::tooLongNameIsRefused()
{
    Run run(m_database->db());
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať jedlo!"));
    const QString name(64 * 1024, QLatin1Char('x'));
    QCOMPARE(run.read(QStringLiteral(",Bistro,Polievky,") + name + QStringLiteral(",,1,\n,Bistro,Polievky,B,,1,\n")),
             summary(2, 0, QString(), 0, QString(), QString()));
    BOXES_DONE(boxes);
    QCOMPARE(m_database->rows(foodsQuery).mid(3).size(), 1);
}

void TestFoodImport::logLines()
{
    Run run(m_database->db());
    const LogCatcher log;
    run.read(QStringLiteral(",Bistro,Polievky,Boršč,,1,,2031-05-14,Obed,\n"));
    QCOMPARE(log.lines(QtDebugMsg),
             (QStringList{"\"Obed\" \"Raňajky\"  comparison of segment", "\"Obed\" \"Obed\"  comparison of segment",
                          "CSV IMPORT - Adding orderable to menu"}));
}

void TestFoodImport::debugLevelLogsTheRow()
{
    Run run(m_database->db());
    for (const int level : {0, 1, 2}) {
        session().debugLevel = quint8(level);
        const LogCatcher log;
        run.read(QStringLiteral("a,b,c,d,e,f,g\n"));
        session().debugLevel = 0;
        QCOMPARE(log.has(QStringLiteral("(\"a\", \"b\", \"c\", \"d\", \"e\", \"f\", \"g\")")), level > 1);
    }
}

void TestFoodImport::modelsAreFreshAfterwards()
{
    Run run(m_database->db());
    const QSignalSpy resets(&run.foods, &FoodModel::modelReset);
    QVERIFY(resets.isValid());
    QString records;
    for (int number = 0; number < 50; ++number)
        records += QStringLiteral(",Bistro,Polievky,Jedlo %1,,1,\n").arg(number);
    run.read(records);
    QCOMPARE(run.foods.rowCount(), 53);
    QCOMPARE(columnTexts(run.foods, FoodModel::Name).constLast(), QStringLiteral("Jedlo 49"));
    QCOMPARE(resets.count(), 2); // not one for each record
    run.read(QStringLiteral("short\n"));
    QCOMPARE(resets.count(), 3);
    run.read(QString());
    QCOMPARE(resets.count(), 3);
}

void TestFoodImport::picturesAreNotRead()
{
    Run run(m_database->db());
    m_database->exec(QStringLiteral("UPDATE via_foods SET picture=REPEAT('x', 1000000) WHERE foodID=1"));
    const auto sent = [this] {
        QSqlQuery query(m_database->db());
        query.exec(QStringLiteral("SHOW SESSION STATUS LIKE 'Bytes_sent'"));
        query.next();
        return query.value(1).toLongLong();
    };
    const qint64 before = sent();
    run.read(QStringLiteral(",Bistro,Polievky,A,,1,\n,Bistro,Polievky,B,,1,\n,Bistro,Polievky,Polievka dňa,,1,\n"));
    QVERIFY2(sent() - before < 100000, qPrintable(QString::number(sent() - before)));
}

QTEST_MAIN(TestFoodImport)
#include "tst_foodimport.moc"
