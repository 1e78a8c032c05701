#include "store/alergenrepository.h"
#include "store/foodrepository.h"
#include "store/orderrepository.h"
#include "store/segmentrepository.h"
#include "store/settingsrepository.h"
#include "store/supplierrepository.h"
#include "store/typerepository.h"
#include "support/boxanswerer.h"
#include "support/testdatabase.h"

#include <QSqlQuery>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// Every free text comes back as it was typed, whatever it holds, from adding, from updating and in every grid.
class TestHostileText : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { BOXES_DONE(m_boxes); }

    void foods_data() { texts(); }
    void foods();
    void types_data() { texts(); }
    void types();
    void alergens_data() { texts(); }
    void alergens();
    void segments_data() { texts(); }
    void segments();
    void orders_data() { texts(); }
    void orders();
    void suppliers_data() { texts(); }
    void suppliers();
    void mails_data() { texts(); }
    void mails();
    void settings_data() { texts(); }
    void settings();
    void grids_data() { texts(); }
    void grids();
    void narrowConnectionRefusesWhatItCannotCarry();

private:
    static void texts();
    QString stored(const QString &query) const { return m_database.value(query).toString(); }
    uint lastKey(const QString &table, const QString &key) const
    {
        return m_database.value(QString("SELECT MAX(%1) FROM %2").arg(key, table)).toUInt();
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestHostileText::initTestCase()
{
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec("INSERT INTO via_segments (name) VALUES ('s')");
    m_database.exec("INSERT INTO via_suppliers (name) VALUES ('s')");
    m_database.exec("INSERT INTO branches (name) VALUES ('other')");
}

void TestHostileText::texts()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Slovak") << "Ľubľanská knedľa s ďatľovou šťavou";
    QTest::newRow("quotes") << "it's \"so\" `said` ''";
    QTest::newRow("backslashes") << "C:\\menu\\n\\'\\";
    QTest::newRow("place markers") << "%1 %2 %3 %99 %L1 %s %n %%";
    QTest::newRow("SQL") << "'; DROP TABLE via_foods; -- \\' OR 1=1 /*";
    QTest::newRow("placeholders") << ":name :bid ? ?1 :date";
    QTest::newRow("HTML") << "<b>tučné</b> &amp; <img src=x onerror=y>";
    QTest::newRow("emoji") << "🍲 ragú 👨‍👩‍👧‍👦 🇸🇰";
    QTest::newRow("right to left") << "שלום \u202Eabc مرحبا";
    QTest::newRow("control characters") << "a\tb\nc\r\nd\x1b\x7f";
    QTest::newRow("decomposed") << "e\u0301 \uFEFF \u200B";
    QTest::newRow("blanks around") << "  guláš  ";
    QTest::newRow("10,000 characters") << QString("ž").repeated(10000);
    QTest::newRow("empty") << "";
}

void TestHostileText::foods()
{
    QFETCH(QString, text);
    FoodRepository repository(m_database.db());
    FoodRecord food;
    food.typeID = 1;
    food.name = text;
    food.description = text;
    QVERIFY(repository.addFood(food));
    food.foodID = repository.loadLastfoodID();
    QCOMPARE(repository.loadFood(food.foodID).name, text);
    QCOMPARE(repository.loadFood(food.foodID).description, text);
    food.name = text + '!';
    food.description = text + '?';
    QVERIFY(repository.updateFood(food));
    QCOMPARE(repository.loadFood(food.foodID).name, text + '!');
    QCOMPARE(repository.loadFood(food.foodID).description, text + '?');
    // As another client sees it.
    QCOMPARE(stored(QString("SELECT name FROM via_foods WHERE foodID=%1").arg(food.foodID)), text + '!');
    QCOMPARE(repository.loadBranchID(text), 0);
}

void TestHostileText::types()
{
    QFETCH(QString, text);
    TypeRepository repository(m_database.db());
    QVERIFY(repository.addType({0, text, 1, 0}));
    const uint key = lastKey("via_types", "typeID");
    QCOMPARE(repository.loadType(key).name, text);
    QVERIFY(repository.updateType({key, text + '!', 1, 0}));
    QCOMPARE(repository.loadType(key).name, text + '!');
}

void TestHostileText::alergens()
{
    QFETCH(QString, text);
    AlergenRepository repository(m_database.db());
    QVERIFY(repository.addAlergen({0, text, text + '?'}));
    const uint key = lastKey("via_alergens", "alergenID");
    QCOMPARE(repository.loadAlergen(key).title, text);
    QCOMPARE(repository.loadAlergen(key).description, text + '?');
    QVERIFY(repository.updateAlergen({key, text + '!', text}));
    QCOMPARE(repository.loadAlergen(key).title, text + '!');
    QCOMPARE(repository.loadAlergen(key).description, text);
}

void TestHostileText::segments()
{
    QFETCH(QString, text);
    SegmentRepository repository(m_database.db());
    QVERIFY(repository.addSegment({0, text, QTime(1, 0), QTime(2, 0), 1}));
    const uint key = lastKey("via_segments", "segmentID");
    QCOMPARE(repository.loadSegment(key).name, text);
    QVERIFY(repository.updateSegment({key, text + '!', QTime(1, 0), QTime(2, 0), 1}));
    QCOMPARE(repository.loadSegment(key).name, text + '!');
}

void TestHostileText::orders()
{
    QFETCH(QString, text);
    FoodRecord food;
    food.typeID = 1;
    food.name = text;
    QVERIFY(FoodRepository(m_database.db()).addFood(food));
    m_database.exec("INSERT INTO via_orderables (foodID, segmentID, date) SELECT MAX(foodID), 1, '2024-01-04' FROM "
                    "via_foods");
    const uint item = lastKey("via_orderables", "orderableID");
    OrderRepository repository(m_database.db());
    QVERIFY(repository.addOrder({0, item, 5, 1, text, QString()}));
    QCOMPARE(stored(QString("SELECT ordered FROM via_orders WHERE orderableID=%1").arg(item)), text);
    QCOMPARE(repository.getFoodName(item), text);
}

void TestHostileText::suppliers()
{
    QFETCH(QString, text);
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addSupplier({0, text, text + '1', text + '2', QTime(), 0}));
    const uint key = repository.loadLastSupplierID();
    SupplierRecord supplier = repository.loadSupplier(key);
    QCOMPARE(supplier.name, text);
    QCOMPARE(supplier.description, text + '1');
    QCOMPARE(supplier.shortcut, text + '2');
    supplier.name += '!';
    supplier.description += '!';
    supplier.shortcut += '!';
    QVERIFY(repository.updateSupplier(supplier));
    supplier = repository.loadSupplier(key);
    QCOMPARE(supplier.name, text + '!');
    QCOMPARE(supplier.description, text + "1!");
    QCOMPARE(supplier.shortcut, text + "2!");
}

void TestHostileText::mails()
{
    QFETCH(QString, text);
    const QString supplierMail = "SELECT mail FROM via_suppliermails ORDER BY supplierMailID DESC LIMIT 1";
    const QString branchMail = "SELECT mail FROM via_branchmails ORDER BY branchMailID DESC LIMIT 1";
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addSupplierMail(1, text));
    QCOMPARE(stored(supplierMail), text);
    QVERIFY(repository.editSupplierMail(lastKey("via_suppliermails", "supplierMailID"), text + '!'));
    QCOMPARE(stored(supplierMail), text + '!');
    for (const uint bid : {4U, 0U}) {
        QVERIFY(repository.addBranchMail(bid, text));
        QCOMPARE(stored(branchMail), text);
        QVERIFY(repository.editBranchMail(lastKey("via_branchmails", "branchMailID"), text + '!'));
        QCOMPARE(stored(branchMail), text + '!');
    }
}

void TestHostileText::settings()
{
    QFETCH(QString, text);
    SettingsRepository repository(m_database.db());
    QVERIFY(repository.variableSet("via_text", text));
    QCOMPARE(repository.variableGet("via_text").toString(), text);
    QVERIFY(repository.variableSetMultiple({{"via_text", text + '!'}}));
    QCOMPARE(repository.variableGetMultiple(QStringList{"via_text"}).value("via_text").toString(), text + '!');
    QCOMPARE(repository.variableGetMultiple(QString("via_")).value("via_text").toString(), text + '!');
}

void TestHostileText::grids()
{
    QFETCH(QString, text);
    m_database.clear();
    SupplierRepository(m_database.db()).addSupplier({0, "s", "d", text, QTime(), 0});
    TypeRepository(m_database.db()).addType({0, text, 1, 0});
    SegmentRepository(m_database.db()).addSegment({0, text, QTime(), QTime(), 1});
    FoodRepository repository(m_database.db());
    FoodRecord food;
    food.typeID = 1;
    food.supplierID = 1;
    food.name = text;
    food.description = text;
    QVERIFY(repository.addFood(food));
    m_database.exec(
        "INSERT INTO via_orderables (foodID, segmentID, date, position, locked) VALUES (1, 1, '2024-01-04', "
        "1, 1)");
    const QDate day(2024, 1, 4);
    const auto cell = [](QStandardItemModel *made, int row, int column) {
        const std::unique_ptr<QStandardItemModel> model(made);
        return model->index(row, column).data().toString();
    };
    const QString withShortcut = text + ' ' + text;
    QCOMPARE(cell(repository.loadAllFood(), 0, 3), withShortcut);
    QCOMPARE(cell(repository.loadAllFood(), 0, 4), text);
    QCOMPARE(cell(repository.loadDayMenu(day, 1, 0), 0, 2), text); // heading
    QCOMPARE(cell(repository.loadDayMenu(day, 1, 0), 1, 2), text);
    QCOMPARE(cell(repository.loadDayMenu(day, 1, 0), 1, 12), text);
    QCOMPARE(cell(repository.loadMenuWidgetMenu(day, 0), 0, 2), text);
    QCOMPARE(cell(repository.loadMenuWidgetMenu(day, 0), 1, 2), withShortcut);
    QCOMPARE(cell(repository.loadPersonDayMenu(day, 1, 5, 0), 0, 2), ' ' + text);
    QCOMPARE(cell(repository.loadPersonDayMenu(day, 1, 5, 0), 1, 2), withShortcut);
    QCOMPARE(cell(repository.loadWeekMenu(day, 0), 1, 1), text);
    QCOMPARE(cell(repository.loadWeekMenu(day, 0), 1, 2), withShortcut);
    if (!text.isEmpty())
        QCOMPARE(cell(repository.loadWeekMenu(day, 0), 0, 0), text + " 4.1.2024 - Thursday");
}

void TestHostileText::narrowConnectionRefusesWhatItCannotCarry()
{
    const TestDatabase narrow("narrow");
    // What the driver speaks when the host does not ask for more.
    QVERIFY(QSqlQuery(narrow.db()).exec("SET NAMES utf8mb3"));
    TypeRepository repository(narrow.db());
    QVERIFY(repository.addType({0, "Ragú", 1, 0}));
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať typ jedla !");
    QVERIFY(!repository.addType({0, "🍲", 2, 0}));
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť typ jedla !");
    QVERIFY(!repository.updateType({1, "🍲", 2, 0}));
    QCOMPARE(narrow.rows("SELECT name FROM via_types"), QStringList{"Ragú"});
}

QTEST_MAIN(TestHostileText)
#include "tst_hostiletext.moc"
