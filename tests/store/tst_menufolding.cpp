#include "session/menucolumns.h"
#include "store/menufolding.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QtTest>

class TestMenuFolding : public QObject {
    Q_OBJECT

private slots:
    void headingSumsTheRowsBelow();
    void onlyLaterRowsOfTheTypeCount();
    void everyHeadingOfAPositionSumsWhatIsBelowIt();
    void moneyGetsTheSymbolBelowAHeading();
    void secondHeadingFindsNoMoneyLeft();
    void rowsAboveTheirHeadingKeepPlainMoney();
    void emptyModels();
    void dayMenuAsTheSlowRule_data() { randomModels(); }
    void dayMenuAsTheSlowRule();
    void personMenuAsTheSlowRule_data() { randomModels(); }
    void personMenuAsTheSlowRule();
    void foldingIsLinear();
    void emptyHeadingsGo_data();
    void emptyHeadingsGo();
    void moneyText();

private:
    static void randomModels();
};

namespace {

/// A grid from rows "food|type|total|money"; the other cells are empty.
void fill(QStandardItemModel &model, int columns, const QStringList &rows)
{
    model.clear();
    model.setColumnCount(columns);
    for (const QString &row : rows) {
        const QStringList cells = row.split('|');
        QList<QStandardItem *> items;
        for (int column = 0; column < columns; ++column)
            items.append(new QStandardItem);
        items.at(0)->setText(cells.value(0));
        items.at(1)->setText(cells.value(1));
        items.at(9)->setText(cells.value(2));
        if (columns > 10)
            items.at(10)->setText(cells.value(3));
        model.appendRow(items);
    }
}

/// The rows again in the form of `fill`.
QStringList shown(const QStandardItemModel &model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (const int column : {0, 1, 9, 10})
            cells.append(model.index(row, column).data().toString());
        rows.append(cells.join('|'));
    }
    return rows;
}

QString cell(const QStandardItemModel &model, int row, int column)
{
    return model.index(row, column).data().toString();
}

/// The rule as it is told: for each heading from the top, walk all rows below it.
void slowDayFolding(QStandardItemModel &model)
{
    for (int i = 0; i < model.rowCount(); ++i) {
        if (cell(model, i, 0) != "0")
            continue;
        int sum = 0;
        for (int j = i + 1; j < model.rowCount(); ++j) {
            if (cell(model, j, 1) == cell(model, i, 1))
                sum += model.index(j, 9).data().toInt();
        }
        model.setData(model.index(i, 9), sum, Qt::EditRole);
    }
}

MenuFolding::Totals slowPersonFolding(QStandardItemModel &model, const QString &symbol)
{
    MenuFolding::Totals totals;
    for (int i = 0; i < model.rowCount(); ++i) {
        if (cell(model, i, 0) != "0")
            continue;
        int portions = 0;
        double money = 0;
        for (int j = i + 1; j < model.rowCount(); ++j) {
            if (cell(model, j, 1) != cell(model, i, 1))
                continue;
            portions += model.index(j, 9).data().toInt();
            money += model.index(j, 10).data().toDouble();
            model.setData(model.index(j, 10), cell(model, j, 10) + ' ' + symbol);
        }
        model.setData(model.index(i, 9), portions);
        model.setData(model.index(i, 10), QString::number(money, 'f', 2) + ' ' + symbol);
        totals.portions += portions;
        totals.money += money;
    }
    return totals;
}

/// Random rows: few types, so that several headings share a position, headings anywhere, cells that are no numbers.
QStringList randomRows(quint32 seed, int count, int types)
{
    QRandomGenerator random(seed);
    QStringList rows;
    for (int row = 0; row < count; ++row) {
        const bool heading = random.bounded(4) == 0;
        const QString food = heading ? QString("0") : QString::number(1 + random.bounded(50));
        const QString type = random.bounded(12) == 0 ? QString() : QString::number(random.bounded(types));
        const QString total = random.bounded(3) == 0 ? QString() : QString::number(random.bounded(20));
        const QString money =
            random.bounded(15) == 0 ? QString("x") : QString::number(random.bounded(3000) / 100.0, 'f', 2);
        rows.append(QStringList{food, type, total, money}.join('|'));
    }
    return rows;
}

} // namespace

void TestMenuFolding::headingSumsTheRowsBelow()
{
    QStandardItemModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fill(model, MenuColumn::Count, {"0|1|", "5|1|3", "6|1|4", "0|2|", "7|2|"});
    MenuFolding::foldDayMenu(model);
    QCOMPARE(columnTexts(model, MenuColumn::Total), (QStringList{"7", "3", "4", "0", ""}));
}

void TestMenuFolding::onlyLaterRowsOfTheTypeCount()
{
    QStandardItemModel model;
    fill(model, MenuColumn::Count, {"5|1|8", "0|1|", "6|2|4", "7|1|1", "0|2|", "8|1|2"});
    MenuFolding::foldDayMenu(model);
    QCOMPARE(columnTexts(model, MenuColumn::Total), (QStringList{"8", "3", "4", "1", "0", "2"}));
}

void TestMenuFolding::everyHeadingOfAPositionSumsWhatIsBelowIt()
{
    QStandardItemModel model;
    fill(model, MenuColumn::Count, {"0|1|", "5|1|1", "0|1|", "6|1|2"});
    MenuFolding::foldDayMenu(model);
    QCOMPARE(columnTexts(model, MenuColumn::Total), (QStringList{"3", "1", "2", "2"}));
}

void TestMenuFolding::moneyGetsTheSymbolBelowAHeading()
{
    QStandardItemModel model;
    fill(model, PersonMenuColumn::Count, {"0|1||0.00", "5|1|2|7.00", "6|1|1|3.50", "0|2||0.00", "7|2||0.00"});
    const MenuFolding::Totals totals = MenuFolding::foldPersonMenu(model, "€");
    QCOMPARE(shown(model),
             (QStringList{"0|1|3|10.50 €", "5|1|2|7.00 €", "6|1|1|3.50 €", "0|2|0|0.00 €", "7|2||0.00 €"}));
    QCOMPARE(totals.portions, qint64(3));
    QCOMPARE(totals.money, 10.5);
}

void TestMenuFolding::secondHeadingFindsNoMoneyLeft()
{
    const QStringList rows{"0|1||0.00", "5|1|1|2.00", "0|1||0.00", "6|1|2|3.50"};
    QStandardItemModel model;
    fill(model, PersonMenuColumn::Count, rows);
    MenuFolding::Totals totals = MenuFolding::foldPersonMenu(model, "€");
    // The portions of the last row count twice, its money once: the symbol of the first heading makes it a text.
    QCOMPARE(shown(model), (QStringList{"0|1|3|5.50 €", "5|1|1|2.00 €", "0|1|2|0.00 €", "6|1|2|3.50 € €"}));
    QCOMPARE(totals.portions, qint64(5));
    QCOMPARE(totals.money, 5.5);

    // In a locale without a currency symbol the text stays a number.
    fill(model, PersonMenuColumn::Count, rows);
    totals = MenuFolding::foldPersonMenu(model, QString());
    QCOMPARE(shown(model), (QStringList{"0|1|3|5.50 ", "5|1|1|2.00 ", "0|1|2|3.50 ", "6|1|2|3.50  "}));
    QCOMPARE(totals.money, 9.0);
}

void TestMenuFolding::rowsAboveTheirHeadingKeepPlainMoney()
{
    QStandardItemModel model;
    fill(model, PersonMenuColumn::Count, {"5|1|1|2.00", "0|1||0.00", "6|2|1|9.00"});
    const MenuFolding::Totals totals = MenuFolding::foldPersonMenu(model, "€");
    QCOMPARE(shown(model), (QStringList{"5|1|1|2.00", "0|1|0|0.00 €", "6|2|1|9.00"}));
    QCOMPARE(totals.portions, qint64(0));
    QCOMPARE(totals.money, 0.0);
}

void TestMenuFolding::emptyModels()
{
    QStandardItemModel day(0, MenuColumn::Count);
    MenuFolding::foldDayMenu(day);
    QCOMPARE(day.rowCount(), 0);
    QStandardItemModel person(0, PersonMenuColumn::Count);
    const MenuFolding::Totals totals = MenuFolding::foldPersonMenu(person, "€");
    QCOMPARE(totals.portions, qint64(0));
    QCOMPARE(totals.money, 0.0);
    QStandardItemModel week(0, WeekMenuColumn::Count);
    MenuFolding::removeEmptyHeadings(week);
    QCOMPARE(week.rowCount(), 0);
}

void TestMenuFolding::randomModels()
{
    QTest::addColumn<QStringList>("rows");
    for (quint32 seed = 1; seed <= 60; ++seed)
        QTest::addRow("seed %u", seed) << randomRows(seed, 5 + int(seed) * 2, 1 + int(seed % 6));
}

void TestMenuFolding::dayMenuAsTheSlowRule()
{
    QFETCH(QStringList, rows);
    QStandardItemModel expected;
    fill(expected, MenuColumn::Count, rows);
    slowDayFolding(expected);
    QStandardItemModel model;
    fill(model, MenuColumn::Count, rows);
    MenuFolding::foldDayMenu(model);
    QCOMPARE(rowTexts(model), rowTexts(expected));
}

void TestMenuFolding::personMenuAsTheSlowRule()
{
    QFETCH(QStringList, rows);
    for (const QString &symbol : {QString("€"), QString("Kč"), QString("$"), QString()}) {
        QStandardItemModel expected;
        fill(expected, PersonMenuColumn::Count, rows);
        const MenuFolding::Totals slow = slowPersonFolding(expected, symbol);
        QStandardItemModel model;
        fill(model, PersonMenuColumn::Count, rows);
        const MenuFolding::Totals totals = MenuFolding::foldPersonMenu(model, symbol);
        QCOMPARE(rowTexts(model), rowTexts(expected));
        QCOMPARE(totals.portions, slow.portions);
        QCOMPARE(MenuFolding::moneyText(totals.money, symbol), MenuFolding::moneyText(slow.money, symbol));
    }
}

void TestMenuFolding::foldingIsLinear()
{
    // 2,000 headings over 20,000 rows: the walk of all rows below each heading would take 20 million steps.
    QStandardItemModel model;
    QStringList rows;
    for (int type = 0; type < 2000; ++type) {
        rows.append(QString("0|%1||0.00").arg(type));
        for (int food = 0; food < 9; ++food)
            rows.append(QString("7|%1|1|0.10").arg(type));
    }
    fill(model, PersonMenuColumn::Count, rows);
    QElapsedTimer timer;
    timer.start();
    const MenuFolding::Totals totals = MenuFolding::foldPersonMenu(model, "€");
    QVERIFY2(timer.elapsed() < 3000, qPrintable(QString("%1 ms").arg(timer.elapsed())));
    QCOMPARE(totals.portions, qint64(18000));
    QCOMPARE(MenuFolding::moneyText(totals.money, "€"), QString("1800.00 €"));
}

void TestMenuFolding::emptyHeadingsGo_data()
{
    QTest::addColumn<QStringList>("rows"); // "heading|food"
    QTest::addColumn<QStringList>("left");
    QTest::newRow("nothing published") << QStringList{"A|", "B|", "C|"} << QStringList();
    QTest::newRow("last slot empty") << QStringList{"A|", "|f", "B|"} << QStringList{"A|", "|f"};
    QTest::newRow("first slot empty") << QStringList{"A|", "B|", "|f"} << QStringList{"B|", "|f"};
    QTest::newRow("all full") << QStringList{"A|", "|f", "B|", "|g", "|h"} << QStringList{"A|", "|f", "B|", "|g", "|h"};
    // A food without a supplier has no name: it is a row without a food, and takes its heading with it when it is
    // first.
    QTest::newRow("nameless food last") << QStringList{"A|", "|f", "|", "B|", "|g"}
                                        << QStringList{"A|", "|f", "B|", "|g"};
    QTest::newRow("nameless food first") << QStringList{"A|", "|", "|f"} << QStringList{"|", "|f"};
    QTest::newRow("nameless food alone") << QStringList{"A|", "|", "B|"} << QStringList();
}

void TestMenuFolding::emptyHeadingsGo()
{
    QFETCH(QStringList, rows);
    QFETCH(QStringList, left);
    QStandardItemModel model(0, WeekMenuColumn::Count);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (const QString &row : qAsConst(rows)) {
        const QStringList cells = row.split('|');
        model.appendRow({new QStandardItem(cells.at(0)), new QStandardItem, new QStandardItem(cells.at(1)),
                         new QStandardItem, new QStandardItem});
    }
    MenuFolding::removeEmptyHeadings(model);
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row)
        result.append(cell(model, row, 0) + '|' + cell(model, row, 2));
    QCOMPARE(result, left);
}

void TestMenuFolding::moneyText()
{
    QCOMPARE(MenuFolding::moneyText(3.5, "€"), QString("3.50 €"));
    QCOMPARE(MenuFolding::moneyText(0, QString()), QString("0.00 "));
    QCOMPARE(MenuFolding::moneyText(1234.567, "Kč"), QString("1234.57 Kč"));
}

QTEST_APPLESS_MAIN(TestMenuFolding)
#include "tst_menufolding.moc"
