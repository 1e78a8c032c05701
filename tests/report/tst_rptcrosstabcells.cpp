#include "crosstabfield.h"

#include <QtTest>

#include <limits>

/// The cells of a cross table, and its sums in a few grids that can be checked by eye.
class TestRptCrossTabCells : public QObject {
    Q_OBJECT

private slots:
    void cells();
    void cellsInAnyOrder();
    void cellsOfAHugeRectangle();
    void backgrounds();
    void columnHeaders();
    void foreignCells();
    void countsThatChangeAfterwards();
    void sums();
    void blockSums_data();
    void blockSums();
    void numericHeadersCount();
    void formOfTheSums();

private:
    RptCrossTabObject *table(int rows) { return makeTable(&m_field, rows); }

    std::unique_ptr<RptFieldObject> m_field;
};

namespace {

/// The values of the cells, row by row: "1,2|3,4".
QString valuesOf(const RptCrossTabObject &table)
{
    QStringList rows;
    for (int first = 0; first < table.fieldList.size(); first += table.colCount) {
        QStringList row;
        for (int col = 0; col < table.colCount; ++col)
            row.append(table.fieldList.at(first + col)->value);
        rows.append(row.join(','));
    }
    return rows.join('|');
}

/// What a print does: the caller fills each cell, the totals are computed, in the order of the cells.
void fill(RptCrossTabObject *table)
{
    int next = 0;
    for (RptFieldObject *cell : qAsConst(table->fieldList)) {
        if (table->isTotalCell(cell))
            table->computeTotalCell(cell);
        else if (!table->isHeaderCell(cell))
            cell->value = QString::number(++next);
    }
}

} // namespace

void TestRptCrossTabCells::cells()
{
    RptCrossTabObject *const crossTab = table(2);
    crossTab->colCount = 7; // 300 units: 42 each
    crossTab->rowCount = 12;
    crossTab->buildCells();
    QCOMPARE(crossTab->fieldList.size(), 84);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 7; ++col) {
            const RptFieldObject *cell = crossTab->fieldList.at(row * 7 + col);
            QCOMPARE(cell->rect, QRect(10 + 42 * col, 20 + 20 * row, 42, 20));
            QCOMPARE(cell->name, 'f' + QString::number(col) + QString::number(row));
            QCOMPARE(cell->parentCrossTab, crossTab);
            QVERIFY(cell->isCrossTabCell());
            QCOMPARE(cell->fieldType, static_cast<int>(Rpt::label));
            QCOMPARE(cell->aligment, Qt::AlignHCenter | Qt::AlignVCenter);
            QCOMPARE(cell->value, QString());
            QCOMPARE(cell->backgroundColor, QColor(Qt::white));
            QCOMPARE(crossTab->cellRow(cell, true), row);
            QCOMPARE(crossTab->cellCol(cell), col);
        }
    }
}

void TestRptCrossTabCells::cellsInAnyOrder()
{
    RptCrossTabObject *const crossTab = table(2);
    crossTab->setColCount(4);
    crossTab->setRowCount(5);
    crossTab->buildCells();
    const RptFieldObject foreign;
    const auto check = [crossTab](int index) {
        const RptFieldObject *const cell = crossTab->fieldList.at(index);
        QCOMPARE(crossTab->cellRow(cell, true), index / 4);
        QCOMPARE(crossTab->cellCol(cell), index % 4);
    };
    for (int index = 19; index >= 0; --index)
        check(index);
    for (int index = 0; index < 20; ++index) {
        check(index);
        QCOMPARE(crossTab->cellCol(&foreign), -1);
        check(index * 7 % 20);
    }
    check(19);
    crossTab->rowCount = 1; // shorter than where the last search ended
    crossTab->buildCells();
    for (int index = 0; index < 4; ++index)
        check(index);
    crossTab->rowCount = 0;
    crossTab->buildCells();
    QCOMPARE(crossTab->cellCol(&foreign), -1);
}

void TestRptCrossTabCells::cellsOfAHugeRectangle()
{
    RptCrossTabObject *const crossTab = table(2);
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    crossTab->rect = QRect(QPoint(least, most), QPoint(most, most));
    crossTab->rowHeight = most;
    crossTab->colCount = 1;
    crossTab->buildCells();
    const QRect rect = crossTab->fieldList.last()->rect; // compared by its edges: its width is more than an `int`
    QCOMPARE(QVector<int>({rect.left(), rect.top(), rect.right(), rect.bottom()}),
             QVector<int>({least, most, most, most}));
    crossTab->colCount = 500; // more columns than units
    crossTab->rect = QRect(0, 0, 100, 100);
    crossTab->rowHeight = 20;
    crossTab->buildCells();
    QCOMPARE(crossTab->fieldList.last()->rect, QRect(0, 40, 0, 20));
}

void TestRptCrossTabCells::backgrounds()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->totalByRowVisible = crossTab->headerIsVisible = true;
    crossTab->totalBackgroundColor = Qt::red;
    crossTab->headerBackgroundColor = Qt::blue;
    crossTab->setColCount(1);
    crossTab->setRowCount(1);
    crossTab->buildCells();
    QCOMPARE(crossTab->fieldList.size(), 4);
    const QVector<QColor> expected{Qt::blue, Qt::blue, Qt::white, Qt::red}; // a header over a total column is a header
    for (int index = 0; index < 4; ++index) {
        QCOMPARE(crossTab->fieldList.at(index)->backgroundColor, expected.at(index));
        QCOMPARE(crossTab->fieldList.at(index)->defaultBackgroundColor, expected.at(index));
    }
}

void TestRptCrossTabCells::columnHeaders()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->headerIsVisible = true;
    crossTab->rowCount = 2;
    crossTab->colHeader = QStringList{"<b>one</b>", "%1"};
    crossTab->buildCells();
    QCOMPARE(valuesOf(*crossTab), QStringLiteral("<b>one</b>,%1,|<b>one</b>,%1,"));
    crossTab->fieldList.at(2)->value = "kept";
    crossTab->applyColumnHeader(crossTab->fieldList.at(2));
    QCOMPARE(crossTab->fieldList.at(2)->value, QStringLiteral("kept"));
    crossTab->colHeader = QStringList{"1", "2", "3", "4"};
    for (RptFieldObject *cell : qAsConst(crossTab->fieldList))
        crossTab->applyColumnHeader(cell);
    QCOMPARE(valuesOf(*crossTab), QStringLiteral("1,2,3|1,2,3"));
}

void TestRptCrossTabCells::foreignCells()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->totalByRowVisible = crossTab->totalByColVisible = true;
    crossTab->subtotalIsVisible = crossTab->headerIsVisible = true;
    crossTab->colHeader = QStringList{"header"};
    crossTab->buildCells();
    RptFieldObject foreign;
    foreign.value = "kept";
    for (RptFieldObject *cell : {&foreign, static_cast<RptFieldObject *>(nullptr)}) {
        QCOMPARE(crossTab->cellRow(cell, true), -1);
        QCOMPARE(crossTab->cellRow(cell, false), -1);
        QCOMPARE(crossTab->cellCol(cell), -1);
        QCOMPARE(crossTab->isHeaderCell(cell), false);
        QCOMPARE(crossTab->isTotalCell(cell), false);
        crossTab->applyColumnHeader(cell);
        crossTab->computeTotalCell(cell);
    }
    QCOMPARE(foreign.value, QStringLiteral("kept"));
}

void TestRptCrossTabCells::countsThatChangeAfterwards()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->totalByRowVisible = crossTab->totalByColVisible = true;
    crossTab->buildCells();
    for (const int cols : {0, -3, 2, 5, 2147483647}) {
        crossTab->colCount = cols;
        for (RptFieldObject *cell : qAsConst(crossTab->fieldList)) {
            QCOMPARE(crossTab->cellRow(cell, true) < 0, cols < 1);
            crossTab->isTotalCell(cell);
            crossTab->computeTotalCell(cell);
        }
    }
}

void TestRptCrossTabCells::sums()
{
    RptCrossTabObject *const crossTab = table(10);
    crossTab->totalByRowVisible = crossTab->totalByColVisible = true;
    crossTab->setColCount(2);
    crossTab->setRowCount(3);
    crossTab->buildCells();
    fill(crossTab);
    QCOMPARE(valuesOf(*crossTab), QStringLiteral("1,2,3|3,4,7|5,6,11|9,12,21"));
    fill(crossTab); // the preview paints again
    QCOMPARE(valuesOf(*crossTab), QStringLiteral("1,2,3|3,4,7|5,6,11|9,12,21"));
}

void TestRptCrossTabCells::blockSums_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("values");
    // Headers and subtotals are counted for the rows of data alone: two rows fill a page of four with theirs, and the
    // total's row is the second page's header.
    QTest::newRow("2 rows") << 2 << "a,b,sum|1,2,3|3,4,7|4,6,10|a,b,sum";
    QTest::newRow("3 rows") << 3 << "a,b,sum|1,2,3|3,4,7|4,6,10|a,b,sum|4,6,10";
    QTest::newRow("4 rows") << 4 << "a,b,sum|1,2,3|3,4,7|4,6,10|a,b,sum|0,0,0|4,6,10";
    QTest::newRow("5 rows") << 5 << "a,b,sum|1,2,3|3,4,7|4,6,10|a,b,sum|5,6,11|7,8,15|12,14,26|a,b,sum|16,20,36";
}

void TestRptCrossTabCells::blockSums()
{
    QFETCH(int, rows);
    RptCrossTabObject *const crossTab = table(4);
    crossTab->totalByRowVisible = crossTab->totalByColVisible = true;
    crossTab->subtotalIsVisible = crossTab->headerIsVisible = true;
    crossTab->colHeader = QStringList{"a", "b", "sum"};
    crossTab->setColCount(2);
    crossTab->setRowCount(rows);
    crossTab->buildCells();
    fill(crossTab);
    QTEST(valuesOf(*crossTab), "values");
}

void TestRptCrossTabCells::numericHeadersCount()
{
    RptCrossTabObject *const crossTab = table(10);
    crossTab->totalByColVisible = crossTab->headerIsVisible = true;
    crossTab->colHeader = QStringList{"2024", "b", "c"};
    crossTab->setRowCount(1);
    crossTab->buildCells();
    fill(crossTab);
    // The last column sums its row, though there is no column of totals.
    QCOMPARE(valuesOf(*crossTab), QStringLiteral("2024,b,c|1,2,3|2025,2,2027"));
}

void TestRptCrossTabCells::formOfTheSums()
{
    RptCrossTabObject *const crossTab = table(10);
    crossTab->totalByRowVisible = true;
    crossTab->setColCount(2);
    crossTab->rowCount = 1;
    crossTab->buildCells();
    const auto sumOf = [crossTab](const char *first, const char *second) {
        crossTab->fieldList.at(0)->value = first;
        crossTab->fieldList.at(1)->value = second;
        crossTab->computeTotalCell(crossTab->fieldList.at(2));
        return crossTab->fieldList.at(2)->value;
    };
    QCOMPARE(sumOf("1.5", "2.25"), QStringLiteral("3.75"));
    QCOMPARE(sumOf("1,5", "text"), QStringLiteral("0"));
    QCOMPARE(sumOf("", "-3"), QStringLiteral("-3"));
    QCOMPARE(sumOf("123456", "0.4"), QStringLiteral("123456"));
    QCOMPARE(sumOf("1234567", "0"), QStringLiteral("1.23457e+06"));
    QCOMPARE(sumOf("1e308", "1e308"), QStringLiteral("inf"));
    QCOMPARE(sumOf("<b>5</b>", "7"), QStringLiteral("7"));
}

QTEST_MAIN(TestRptCrossTabCells)
#include "tst_rptcrosstabcells.moc"
