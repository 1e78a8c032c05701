#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// The board's grid of the seven days around a date.
class TestWeekGrid : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void wholeGrid();
    void totals_data();
    void totals();
    void sevenDays_data();
    void sevenDays();
    void branches_data();
    void branches();
    void sameFoodOnTwoDaysAndSlots();
    void foodWithoutSupplierHasNoName();
    void positionsSortAsText();
    void zeroLimitIsEmpty();
    void flagsFontsAndToolTips();
    void headers();
    void nothingAtAll();
    void invalidDate();
    void logs();

private:
    std::unique_ptr<QStandardItemModel> load(uint bid, int uid = -1) const
    {
        return std::unique_ptr<QStandardItemModel>(
            FoodRepository(m_database.db()).loadMenuWidgetMenu(QDate(2024, 1, 4), bid, uid));
    }
    void addItems(const QString &values) const
    {
        m_database.exec("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, price, "
                        "`limit`, locked) VALUES "
                        + values);
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestWeekGrid::init()
{
    m_database.clear();
    m_database.exec(
        "INSERT INTO via_types (typeID, name, position) VALUES (10, 'Polievka', 1), (20, 'Hlavné jedlo', 2)");
    m_database.exec("INSERT INTO via_segments (segmentID, name) VALUES (1, 'Obed'), (2, 'Večera')");
    m_database.exec("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Prvý', 'P')");
    m_database.exec(
        "INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (1, 10, 1, 'Vývar', 1.5), (2, "
        "20, 1, 'Guláš', 5), (3, 20, NULL, 'Voda', 1)");
}

void TestWeekGrid::wholeGrid()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 2, 4.5, 9, 1), (8, 2, 4, 2, '2024-01-05', 1, 4.6, 0, 0), (9, 1, 4, 1, "
             "'2024-01-07', 3, 0.1, 0, 2)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 5, 2), (7, 6, 1)");
    const auto model = load(4);
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model->parent());
    QCOMPARE(rowTexts(*model),
             (QStringList{"0|1|Polievka||||0||| ||||", "1|1|P Vývar|9|1|2024-01-07|3|2|0.1||1|4|P|",
                          "0|2|Hlavné jedlo||||0||| ||||", "2|2|P Guláš|8|2|2024-01-05|1|0|4.6||1|4|P|",
                          "2|2|P Guláš|7|1|2024-01-04|2|1|4.5|3|1|4|P|9"}));
}

void TestWeekGrid::totals_data()
{
    QTest::addColumn<int>("uid");
    QTest::addColumn<QString>("total");
    QTest::newRow("everybody") << -1 << "6";
    QTest::newRow("one person") << 5 << "3";
    QTest::newRow("another person") << 6 << "3";
    QTest::newRow("person without orders") << 7 << "";
    QTest::newRow("nobody's key") << 0 << "";
    QTest::newRow("negative key") << -2 << "";
}

void TestWeekGrid::totals()
{
    QFETCH(int, uid);
    QFETCH(QString, total);
    addItems("(7, 2, 4, 1, '2024-01-04', 2, 4.5, 9, 1)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 5, 2), (7, 5, 1), (7, 6, 3)");
    const auto model = load(4, uid);
    QCOMPARE(model->rowCount(), 3);
    QCOMPARE(columnTexts(*model, MenuColumn::Total), (QStringList{" ", " ", total})); // headings carry no sums
}

void TestWeekGrid::sevenDays_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("days");
    QTest::newRow("Thursday: Monday to Sunday")
        << QDate(2024, 1, 4) << "2024-01-01 2024-01-02 2024-01-03 2024-01-04 2024-01-05 2024-01-06 2024-01-07";
    QTest::newRow("over the year's end") << QDate(
        2020, 12, 31) << "2020-12-28 2020-12-29 2020-12-30 2020-12-31 2021-01-01 2021-01-02 2021-01-03";
    QTest::newRow("leap day") << QDate(2024, 2, 29)
                              << "2024-02-26 2024-02-27 2024-02-28 2024-02-29 2024-03-01 2024-03-02 2024-03-03";
}

void TestWeekGrid::sevenDays()
{
    QFETCH(QDate, date);
    QFETCH(QString, days);
    for (int offset = -10; offset <= 10; ++offset) {
        m_database.exec(QString("INSERT INTO via_orderables (foodID, segmentID, date) VALUES (1, 1, '%1')")
                            .arg(date.addDays(offset).toString(Qt::ISODate)));
    }
    const std::unique_ptr<QStandardItemModel> model(FoodRepository(m_database.db()).loadMenuWidgetMenu(date, 0));
    QStringList found = columnTexts(*model, MenuColumn::Date);
    found.removeAll(QString());
    found.sort();
    QCOMPARE(found.join(' '), days);
}

void TestWeekGrid::branches_data()
{
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QString>("items");
    QTest::newRow("branch") << 4U << "7";
    QTest::newRow("another branch") << 5U << "8";
    QTest::newRow("all branches") << 0U << "9";
    QTest::newRow("branch without items") << 6U << "";
}

void TestWeekGrid::branches()
{
    QFETCH(uint, bid);
    QFETCH(QString, items);
    addItems("(7, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (8, 1, 5, 1, '2024-01-04', 1, 1, 0, 0), (9, 1, NULL, 1, "
             "'2024-01-04', 1, 1, 0, 0)");
    QStringList found = columnTexts(*load(bid), MenuColumn::OrderableId);
    found.removeAll(QString());
    QCOMPARE(found.join(' '), items);
}

void TestWeekGrid::sameFoodOnTwoDaysAndSlots()
{
    addItems(
        "(7, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (8, 1, 4, 2, '2024-01-04', 1, 2, 0, 0), (9, 1, 4, 1, '2024-01-05', "
        "1, 3, 0, 0)");
    QStringList prices = columnTexts(*load(4), MenuColumn::Price);
    prices.removeAll(QString());
    prices.sort();
    QCOMPARE(prices, (QStringList{"1", "2", "3"}));
}

void TestWeekGrid::foodWithoutSupplierHasNoName()
{
    addItems("(7, 3, 4, 1, '2024-01-04', 1, 1, 0, 0)");
    QCOMPARE(rowTexts(*load(4)).constLast(), QString("3|2||7|1|2024-01-04|1|0|1|||4||"));
}

void TestWeekGrid::positionsSortAsText()
{
    addItems(
        "(7, 1, 4, 1, '2024-01-04', 2, 1, 0, 0), (8, 1, 4, 1, '2024-01-05', 10, 1, 0, 0), (9, 1, 4, 1, '2024-01-06', "
        "1, 1, 0, 0)");
    QCOMPARE(columnTexts(*load(4), MenuColumn::Position), (QStringList{"0", "1", "10", "2", "0"}));
}

void TestWeekGrid::zeroLimitIsEmpty()
{
    addItems("(7, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (8, 1, 4, 1, '2024-01-04', 2, 1, 12, 0)");
    QCOMPARE(columnTexts(*load(4), MenuColumn::Limit), (QStringList{"", "", "12", ""}));
}

void TestWeekGrid::flagsFontsAndToolTips()
{
    addItems("(7, 1, 4, 1, '2024-01-04', 1, 1, 3, 0)");
    const auto model = load(4);
    QFont bold;
    bold.setWeight(75);
    for (int row = 0; row < model->rowCount(); ++row) {
        const bool heading = model->index(row, MenuColumn::FoodId).data() == "0";
        for (int column = 0; column < MenuColumn::Count; ++column) {
            const QModelIndex index = model->index(row, column);
            const bool fixed = column == MenuColumn::Name || column == MenuColumn::Total;
            const bool limit = column == MenuColumn::Limit;
            QCOMPARE(index.flags().testFlag(Qt::ItemIsEditable), !fixed && !limit);
            QCOMPARE(index.flags().testFlag(Qt::ItemIsSelectable), !fixed);
            QCOMPARE(index.data(Qt::TextAlignmentRole),
                     column == MenuColumn::Total || limit ? QVariant(int(Qt::AlignCenter)) : QVariant());
            QCOMPARE(index.data(Qt::FontRole), heading && column == MenuColumn::Name ? QVariant(bold) : QVariant());
            QCOMPARE(index.data(Qt::ToolTipRole), limit ? QVariant("Limit počtu objednávok") : QVariant());
            QCOMPARE(index.data().type(), QVariant::String);
        }
    }
}

void TestWeekGrid::headers()
{
    const auto model = load(4);
    QCOMPARE(model->columnCount(), 14);
    const QMap<int, QPair<QString, QString>> named{
        {2, {"jedlo", ""}}, {9, {"obj.", "Počet objednaných jedál"}}, {13, {"limit", "Limit počtu objednávok"}}};
    for (int column = 0; column < MenuColumn::Count; ++column) {
        QCOMPARE(model->headerData(column, Qt::Horizontal).toString(),
                 named.contains(column) ? named[column].first : QString::number(column + 1));
        QCOMPARE(model->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString(), named.value(column).second);
    }
}

void TestWeekGrid::nothingAtAll()
{
    m_database.clear();
    const auto model = load(0);
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), 14);
}

void TestWeekGrid::invalidDate()
{
    addItems("(7, 1, NULL, 1, '2024-01-04', 1, 1, 3, 0)");
    const std::unique_ptr<QStandardItemModel> model(FoodRepository(m_database.db()).loadMenuWidgetMenu(QDate(), 0));
    QCOMPARE(columnTexts(*model, MenuColumn::FoodId), (QStringList{"0", "0"}));
}

void TestWeekGrid::logs()
{
    LogCatcher log;
    load(4);
    load(0, 7);
    QCOMPARE(
        log.lines(QtDebugMsg),
        (QStringList{"FoodRepository::loadMenuWidgetMenu() ::: Creating MenuWidget menu, date:  QDate(\"2024-01-04\") "
                     ", branch ID:  4 user ID:  -1",
                     "FoodRepository::loadMenuWidgetMenu() ::: MenuWidget menu created, rowcount:  2",
                     "FoodRepository::loadMenuWidgetMenu() ::: Creating MenuWidget menu, date:  QDate(\"2024-01-04\") "
                     ", branch ID:  0 user ID:  7",
                     "FoodRepository::loadMenuWidgetMenu() ::: MenuWidget menu created, rowcount:  2"}));
}

QTEST_MAIN(TestWeekGrid)
#include "tst_weekgrid.moc"
