#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemModelTester>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// The grid for editing the menu of one slot and day.
class TestDayMenu : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void wholeGridOfABranch();
    void wholeGridForAllBranches();
    void typeWithoutFoodsKeepsItsHeading();
    void foodTakesTheMenusPriceOnceItIsOnTheMenu();
    void foodsOfUnlinkedSuppliersAreLeftOut();
    void menuFoodOfAnUnlinkedSupplierStays();
    void otherDaysSlotsAndBranchesAreLeftOut();
    void totalsAreEverybodys();
    void positionsSortAsText();
    void twoTypesOfOnePosition();
    void limit_data();
    void limit();
    void flagsAndAlignment();
    void headers();
    void emptyDatabase();
    void logs();

private:
    std::unique_ptr<QStandardItemModel> load(uint bid, uint segmentID = 1) const
    {
        return std::unique_ptr<QStandardItemModel>(FoodRepository(m_database.db()).loadDayMenu(m_day, segmentID, bid));
    }
    void addItems(const QString &values) const
    {
        m_database.exec("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, price, "
                        "`limit`, locked) VALUES "
                        + values);
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
    const QDate m_day{2024, 1, 4};
};

namespace {

int rowOf(const QStandardItemModel &model, const QString &food)
{
    return columnTexts(model, MenuColumn::FoodId).indexOf(food);
}

QString cell(const QStandardItemModel &model, const QString &food, int column)
{
    return model.index(rowOf(model, food), column).data().toString();
}

} // namespace

void TestDayMenu::init()
{
    m_database.clear();
    // The types' keys and positions differ, so that the one cannot be taken for the other.
    m_database.exec(
        "INSERT INTO via_types (typeID, name, position) VALUES (10, 'Polievka', 1), (20, 'Hlavné jedlo', 2)");
    m_database.exec("INSERT INTO via_segments (segmentID, name) VALUES (1, 'Obed'), (2, 'Večera')");
    m_database.exec(
        "INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Prvý', 'P'), (2, 'Druhý', 'D')");
    m_database.exec("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, 4), (1, NULL), (2, 5)");
    m_database.exec(
        "INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (1, 10, 1, 'Vývar', 1.5), (2, "
        "20, 1, 'Guláš', 5), (3, 20, 1, 'Rezeň', 6.1), (4, 20, 2, 'Ryba', 7)");
}

void TestDayMenu::wholeGridOfABranch()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 2, 4.5, 9, 1), (8, 3, 4, 1, '2024-01-04', 1, 5.5, 0, 0)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 1, 2), (7, 2, 3), (8, 1, 1)");
    const auto model = load(4);
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model->parent());
    // A food that is not on the menu has no position and so stands ahead of its type's heading.
    QCOMPARE(rowTexts(*model),
             (QStringList{"1|1|Vývar||||||1.5||1|4|P|", "0|1|Polievka||||0|||0||||", "0|2|Hlavné jedlo||||0|||6||||",
                          "3|2|Rezeň|8|1|2024-01-04|1|0|5.5|1|1|4|P|", "2|2|Guláš|7|1|2024-01-04|2|1|4.5|5|1|4|P|9"}));
}

void TestDayMenu::wholeGridForAllBranches()
{
    addItems("(7, 2, NULL, 1, '2024-01-04', 2, 4.5, 9, 2), (8, 3, 4, 1, '2024-01-04', 1, 5.5, 0, 0)");
    const auto model = load(0);
    QCOMPARE(rowTexts(*model),
             (QStringList{"1|1|Vývar||||||1.5||1||P|", "0|1|Polievka||||0|||0||||", "3|2|Rezeň||||||6.1||1||P|",
                          "0|2|Hlavné jedlo||||0|||0||||", "2|2|Guláš|7|1|2024-01-04|2|2|4.5||1||P|9"}));
}

void TestDayMenu::typeWithoutFoodsKeepsItsHeading()
{
    m_database.exec("INSERT INTO via_types (typeID, name, position) VALUES (30, 'Dezert', 3)");
    QCOMPARE(rowTexts(*load(4)).constLast(), QString("0|3|Dezert||||0|||0||||"));
}

void TestDayMenu::foodTakesTheMenusPriceOnceItIsOnTheMenu()
{
    QCOMPARE(cell(*load(4), "2", MenuColumn::Price), QString("5"));
    addItems("(7, 2, 4, 1, '2024-01-04', 1, 4.25, 0, 0)");
    QCOMPARE(cell(*load(4), "2", MenuColumn::Price), QString("4.25"));
    m_database.exec("UPDATE via_foods SET price = 99 WHERE foodID = 2");
    QCOMPARE(cell(*load(4), "2", MenuColumn::Price), QString("4.25"));
}

void TestDayMenu::foodsOfUnlinkedSuppliersAreLeftOut()
{
    m_database.exec("INSERT INTO via_foods (foodID, typeID, supplierID, name) VALUES (5, 10, NULL, 'Voda')");
    QCOMPARE(rowOf(*load(4), "4"), -1);
    QCOMPARE(rowOf(*load(4), "5"), -1);
    QVERIFY(rowOf(*load(5), "4") >= 0);
    QCOMPARE(rowOf(*load(5), "1"), -1);
    QCOMPARE(load(6)->rowCount(), 2); // the headings
}

void TestDayMenu::menuFoodOfAnUnlinkedSupplierStays()
{
    addItems("(7, 4, 4, 1, '2024-01-04', 1, 4.25, 0, 0)");
    QCOMPARE(cell(*load(4), "4", MenuColumn::OrderableId), QString("7"));
}

void TestDayMenu::otherDaysSlotsAndBranchesAreLeftOut()
{
    addItems(
        "(7, 1, 4, 2, '2024-01-04', 1, 9, 0, 0), (8, 1, 4, 1, '2024-01-05', 1, 9, 0, 0), (9, 1, 4, 1, '2024-01-03', "
        "1, 9, 0, 0), (10, 1, 5, 1, '2024-01-04', 1, 9, 0, 0), (11, 1, NULL, 1, '2024-01-04', 1, 9, 0, 0)");
    QCOMPARE(cell(*load(4), "1", MenuColumn::OrderableId), QString());
    QCOMPARE(cell(*load(4, 2), "1", MenuColumn::OrderableId), QString("7"));
    QCOMPARE(cell(*load(5), "1", MenuColumn::OrderableId), QString("10"));
    QCOMPARE(cell(*load(0), "1", MenuColumn::OrderableId), QString("11"));
}

void TestDayMenu::totalsAreEverybodys()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 1, 4.5, 0, 1), (8, 1, 4, 1, '2024-01-04', 1, 4.5, 0, 1)");
    m_database.exec(
        "INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 1, 2), (7, 2, 3), (7, 2, 10), (8, 9, "
        "4)");
    const auto model = load(4);
    QCOMPARE(cell(*model, "2", MenuColumn::Total), QString("15"));
    QCOMPARE(columnTexts(*model, MenuColumn::Total), (QStringList{"4", "4", "", "15", "15"}));
}

void TestDayMenu::positionsSortAsText()
{
    m_database.exec("INSERT INTO via_foods (foodID, typeID, supplierID, name) VALUES (5, 10, 1, 'a'), (6, 10, 1, 'b')");
    addItems(
        "(7, 1, 4, 1, '2024-01-04', 2, 1, 0, 0), (8, 5, 4, 1, '2024-01-04', 10, 1, 0, 0), (9, 6, 4, 1, '2024-01-04', "
        "1, 1, 0, 0)");
    QCOMPARE(columnTexts(*load(4), MenuColumn::Position).mid(0, 4), (QStringList{"0", "1", "10", "2"}));
}

void TestDayMenu::twoTypesOfOnePosition()
{
    m_database.exec("INSERT INTO via_types (typeID, name, position) VALUES (30, 'Druhá polievka', 1)");
    addItems("(7, 1, 4, 1, '2024-01-04', 1, 1, 0, 1)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 1, 2)");
    // Both headings stand above the meals of their position, and both sum them.
    QCOMPARE(columnTexts(*load(4), MenuColumn::Total).mid(0, 3), (QStringList{"2", "2", "2"}));
}

void TestDayMenu::limit_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << 0 << "";
    QTest::newRow("one") << 1 << "1";
    QTest::newRow("many") << 2147483647 << "2147483647";
}

void TestDayMenu::limit()
{
    QFETCH(int, stored);
    QFETCH(QString, shown);
    addItems(QString("(7, 2, 4, 1, '2024-01-04', 1, 1, %1, 0)").arg(stored));
    QCOMPARE(cell(*load(4), "2", MenuColumn::Limit), shown);
}

void TestDayMenu::flagsAndAlignment()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 1, 1, 5, 0)");
    const auto model = load(4);
    for (int row = 0; row < model->rowCount(); ++row) {
        const bool heading = model->index(row, MenuColumn::FoodId).data() == "0";
        for (int column = 0; column < MenuColumn::Count; ++column) {
            const QModelIndex index = model->index(row, column);
            const bool fixed =
                column == MenuColumn::Name || column == MenuColumn::Total || (column == MenuColumn::Limit && heading);
            QCOMPARE(index.flags().testFlag(Qt::ItemIsEditable), !fixed);
            QVERIFY(index.flags().testFlag(Qt::ItemIsSelectable));
            QCOMPARE(index.data(Qt::TextAlignmentRole),
                     column == MenuColumn::Total ? QVariant(int(Qt::AlignCenter)) : QVariant());
            QVERIFY(!index.data(Qt::FontRole).isValid());
            QVERIFY(!index.data(Qt::ToolTipRole).isValid());
            QCOMPARE(index.data().type(), QVariant::String);
        }
    }
}

void TestDayMenu::headers()
{
    const auto model = load(4);
    QCOMPARE(model->columnCount(), 14);
    for (int column = 0; column < MenuColumn::Count; ++column) {
        const QVariant text = model->headerData(column, Qt::Horizontal);
        if (column == MenuColumn::Name)
            QCOMPARE(text, QVariant("jedlo"));
        else if (column == MenuColumn::Limit)
            QCOMPARE(text, QVariant("limit"));
        else
            QCOMPARE(text, QVariant(column + 1)); // the view's own number
        QCOMPARE(model->headerData(column, Qt::Horizontal, Qt::ToolTipRole),
                 column == MenuColumn::Limit ? QVariant("Limit počtu objednávok (0 = bez limitu)") : QVariant());
    }
}

void TestDayMenu::emptyDatabase()
{
    m_database.clear();
    const auto model = load(4);
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), 14);
    QCOMPARE(model->headerData(MenuColumn::Name, Qt::Horizontal), QVariant("jedlo"));
}

void TestDayMenu::logs()
{
    LogCatcher log;
    load(4);
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.lines(QtInfoMsg).value(0), QString("FoodRepository::loadDayMenu( QDate(\"2024-01-04\") 1 4 )"));
    const QString statement = log.lines(QtInfoMsg).value(1);
    QVERIFY(statement.startsWith("FoodRepository(loading day menu) - SQL: (SELECT z.foodID, z.typeID, "));
    QVERIFY(statement.contains(" AND crd.bid=:bid GROUP BY "));
    QVERIFY(statement.endsWith(" ORDER BY typeID, position"));

    // After a failure too.
    log.clear();
    m_database.exec("RENAME TABLE via_foods TO away");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať menu!");
    load(0);
    m_database.exec("RENAME TABLE away TO via_foods");
    QCOMPARE(log.lines(QtInfoMsg).size(), 2);
    QVERIFY(log.lines(QtInfoMsg).value(1).startsWith("FoodRepository(loading day menu) - SQL: (SELECT z.foodID"));
    QVERIFY(log.lines(QtInfoMsg).value(1).contains(" AND crd.bid IS NULL GROUP BY "));
    QVERIFY(log.lines().constLast().startsWith("FoodRepository(loading day menu) - SQL: ")); // it closes the operation
}

QTEST_MAIN(TestDayMenu)
#include "tst_daymenu.moc"
