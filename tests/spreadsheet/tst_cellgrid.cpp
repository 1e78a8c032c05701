#include "spreadsheet/workbook.h"

#include <QMap>
#include <QRandomGenerator>
#include <QtTest>

using namespace Spreadsheet;

/// The stores of a book: cells, texts, colours.
class TestCellGrid : public QObject {
    Q_OBJECT

private slots:
    void size();
    void empty();
    void order_data();
    void order();
    void random();
    void texts();
    void manyTexts();
    void palette();
};

void TestCellGrid::size()
{
    QCOMPARE(sizeof(Cell), std::size_t(16));
}

void TestCellGrid::empty()
{
    CellGrid grid;
    QCOMPARE(grid.rowCount(), 0);
    QVERIFY(!grid.find(0, 0));
    grid.at(3, 7).number = 5;
    QCOMPARE(grid.rowCount(), 4);
    QVERIFY(grid.row(0).empty());
    QCOMPARE(grid.row(3).size(), std::size_t(1));
    QCOMPARE(grid.find(3, 7)->number, 5.0);
    QCOMPARE(int(grid.find(3, 7)->text), int(Cell::isBlank));
    for (const auto &[row, col] : {std::pair(3, 6), std::pair(3, 8), std::pair(2, 7), std::pair(4, 7)})
        QVERIFY(!grid.find(row, col));
}

void TestCellGrid::order_data()
{
    QTest::addColumn<QVector<int>>("columns");
    QTest::newRow("to the right") << QVector<int>{0, 1, 2, 5};
    QTest::newRow("to the left") << QVector<int>{5, 2, 1, 0};
    QTest::newRow("mixed") << QVector<int>{2, 5, 0, 1};
    QTest::newRow("again") << QVector<int>{1, 5, 1, 0, 2, 5, 2};
    QTest::newRow("ends") << QVector<int>{16383, 0};
}

void TestCellGrid::order()
{
    QFETCH(QVector<int>, columns);
    CellGrid grid;
    for (const int col : columns)
        grid.at(1, col).number += col + 1;
    QMap<int, double> sums;
    for (const int col : columns)
        sums[col] += col + 1;
    const CellGrid::Row &row = grid.row(1);
    QCOMPARE(int(row.size()), sums.size());
    auto expected = sums.begin();
    for (const Cell &cell : row) {
        QCOMPARE(int(cell.col), expected.key());
        QCOMPARE(cell.number, *expected++);
    }
}

void TestCellGrid::random()
{
    QRandomGenerator numbers(7);
    CellGrid grid;
    QMap<QPair<int, int>, double> reference;
    for (int step = 0; step < 20000; ++step) {
        const int row = numbers.bounded(50);
        const int col = numbers.bounded(60);
        grid.at(row, col).number += step;
        reference[{row, col}] += step;
    }
    for (int row = 0; row < 51; ++row) {
        for (int col = 0; col < 61; ++col) {
            const Cell *cell = grid.find(row, col);
            QCOMPARE(cell != nullptr, reference.contains({row, col}));
            QCOMPARE(cell ? cell->number : 0, reference.value({row, col}));
        }
    }
}

void TestCellGrid::texts()
{
    TextTable table;
    QCOMPARE(table.indexOf("Guláš"), 0);
    QCOMPARE(table.indexOf(""), 1);
    QCOMPARE(table.indexOf("guláš"), 2);
    QCOMPARE(table.indexOf(QString("Gul") + "áš"), 0);
    QCOMPARE(table.indexOf(QString()), 1); // a null text is an empty one
    QCOMPARE(table.size(), 3);
    QCOMPARE(table.text(0), QString("Guláš"));
    QCOMPARE(table.text(1), QString());
    QCOMPARE(table.text(2), QString("guláš"));
}

void TestCellGrid::manyTexts()
{
    TextTable table;
    constexpr int count = 30000;
    for (int round = 0; round < 2; ++round) {
        for (int number = 0; number < count; ++number)
            QCOMPARE(table.indexOf(QString::number(number)), number);
    }
    QCOMPARE(table.size(), count);
    QCOMPARE(table.text(count - 1), QString::number(count - 1));
}

void TestCellGrid::palette()
{
    QCOMPARE(paletteRgb(colorBlack), 0x000000);
    QCOMPARE(paletteRgb(colorWhite), 0xffffff);
    QCOMPARE(paletteRgb(10), 0xff0000);
    QCOMPARE(paletteRgb(colorGray25), 0xc0c0c0);
    QCOMPARE(paletteRgb(colorGray50), 0x808080);
    QCOMPARE(paletteRgb(40), 0x00ccff);
    QCOMPARE(paletteRgb(63), 0x333333);
    QCOMPARE(paletteRgb(colorAutomatic), 0);
    QCOMPARE(rgbOf(0x1012345), 0x012345);
    QVERIFY(isRgb(0x1000000));
    QVERIFY(!isRgb(63));
}

QTEST_MAIN(TestCellGrid)
#include "tst_cellgrid.moc"
