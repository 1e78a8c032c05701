#include "report/rptcrosstabobject.h"

#include "report/rptfieldobject.h"

#include <QRandomGenerator>
#include <QtTest>

#include <memory>
#include <vector>

/// The grid of a cross table against a plain one that walks row by row.
class TestRptCrossTabGrid : public QObject {
    Q_OBJECT

private slots:
    void rowCounts();
    void smallShapes_data();
    void smallShapes();
    void randomShapes_data();
    void randomShapes();
    void everyDataRowHasItsNumber();
};

namespace {

struct Shape {
    int rowsPerPage = 1;
    int cols = 1; ///< of data
    int rows = 1; ///< of data
    bool totalByRow = false;
    bool totalByCol = false;
    bool subtotals = false;
    bool headers = false;
};

/// One row of the plain grid.
struct Row {
    int block = 0;
    int dataRow = 0; ///< as `cellRow` numbers it
    bool isHeader = false;
    bool isTotal = false; ///< in every column
};

int pagesOf(int rows, int rowsPerPage)
{
    int pages = 0;
    for (int left = rows; left > 0; left -= rowsPerPage)
        ++pages;
    return pages;
}

int rowCountOf(const Shape &shape)
{
    int count = shape.rows;
    for (const bool extra : {shape.subtotals, shape.headers})
        count += extra ? pagesOf(shape.rows, shape.rowsPerPage) : 0;
    return shape.totalByCol ? count + 1 : count;
}

std::vector<Row> rowsOf(const Shape &shape)
{
    std::vector<Row> rows(static_cast<size_t>(rowCountOf(shape)));
    Row state;
    int inBlock = 0;
    int number = 0;
    for (Row &row : rows) {
        if (inBlock == shape.rowsPerPage) {
            inBlock = 0;
            ++state.block;
            --number;
            number -= shape.headers ? 1 : 0;
        }
        row = state;
        row.isHeader = shape.headers && inBlock == 0;
        row.dataRow = shape.headers ? number - 1 : number;
        row.isTotal = shape.subtotals && inBlock == shape.rowsPerPage - 1;
        ++inBlock;
        ++number;
    }
    const size_t count = rows.size();
    if (shape.totalByCol) {
        rows[count - 1].isTotal = true;
        if (shape.subtotals && count > 1)
            rows[count - 2].isTotal = true;
    } else if (shape.subtotals) {
        rows[count - 1].isTotal = true;
    }
    return rows;
}

/// The plain grid: values in rows of columns.
class PlainGrid {
public:
    explicit PlainGrid(const Shape &shape)
        : m_rows(rowsOf(shape))
        , m_cols(shape.totalByRow ? shape.cols + 1 : shape.cols)
        , m_hasTotalCol(shape.totalByRow)
        , m_values(m_rows.size(), std::vector<double>(static_cast<size_t>(m_cols)))
    {
    }

    int cols() const { return m_cols; }
    size_t rowCount() const { return m_rows.size(); }
    const Row &row(size_t index) const { return m_rows[index]; }
    bool isTotal(size_t row, int col) const { return m_rows[row].isTotal || (m_hasTotalCol && col == m_cols - 1); }
    double &value(size_t row, int col) { return m_values[row][static_cast<size_t>(col)]; }

    void computeTotal(size_t row, int col)
    {
        if (m_rows[row].isHeader)
            return;
        double sum = 0;
        if (col == m_cols - 1) {
            for (int other = 0; other < col; ++other)
                sum += value(row, other);
        } else {
            const bool isLast = row == m_rows.size() - 1;
            for (size_t other = 0; other < m_rows.size(); ++other) {
                if (!isTotal(other, col) && (isLast || m_rows[other].block == m_rows[row].block))
                    sum += value(other, col);
            }
        }
        value(row, col) = sum;
    }

private:
    std::vector<Row> m_rows;
    int m_cols;
    bool m_hasTotalCol;
    std::vector<std::vector<double>> m_values;
};

std::unique_ptr<RptFieldObject> fieldOf(const Shape &shape)
{
    auto field = std::make_unique<RptFieldObject>();
    field->rect = QRect(0, 0, 1000, shape.rowsPerPage * 7 + 3); // the rest of a row is none
    field->crossTab = new RptCrossTabObject;
    RptCrossTabObject *const table = field->crossTab;
    table->parentField = field.get();
    table->rect = field->rect;
    table->rowHeight = 7;
    table->totalByRowVisible = shape.totalByRow;
    table->totalByColVisible = shape.totalByCol;
    table->subtotalIsVisible = shape.subtotals;
    table->headerIsVisible = shape.headers;
    table->setColCount(shape.cols);
    table->setRowCount(shape.rows);
    table->buildCells();
    return field;
}

QString described(const Shape &shape)
{
    return QStringLiteral("%1 to a page, %2 columns, %3 rows, totals %4 %5, subtotals %6, headers %7")
        .arg(shape.rowsPerPage)
        .arg(shape.cols)
        .arg(shape.rows)
        .arg(shape.totalByRow)
        .arg(shape.totalByCol)
        .arg(shape.subtotals)
        .arg(shape.headers);
}

/// Goes through both grids in the order of a print; the name of the first thing that differs.
QString difference(const Shape &shape, QRandomGenerator *random)
{
    const auto field = fieldOf(shape);
    RptCrossTabObject *const table = field->crossTab;
    PlainGrid plain(shape);
    if (table->colCount != plain.cols() || table->rowCount != static_cast<int>(plain.rowCount()))
        return QStringLiteral("counts");
    if (table->fieldList.size() != table->colCount * table->rowCount)
        return QStringLiteral("cells");
    int index = 0;
    for (size_t row = 0; row < plain.rowCount(); ++row) {
        for (int col = 0; col < plain.cols(); ++col) {
            RptFieldObject *const cell = table->fieldList.at(index++);
            if (table->cellRow(cell, true) != static_cast<int>(row) || table->cellCol(cell) != col)
                return QStringLiteral("position");
            if (table->cellRow(cell, false) != plain.row(row).dataRow)
                return QStringLiteral("data row");
            if (table->isHeaderCell(cell) != plain.row(row).isHeader)
                return QStringLiteral("header");
            if (table->isTotalCell(cell) != plain.isTotal(row, col))
                return QStringLiteral("total");
            if (plain.isTotal(row, col)) {
                plain.computeTotal(row, col);
                table->computeTotalCell(cell);
            } else if (!plain.row(row).isHeader) {
                plain.value(row, col) = random->bounded(400) / 4.0 - 20;
                cell->value = QString::number(plain.value(row, col));
            }
            if (cell->value.toDouble() != QString::number(plain.value(row, col), 'g', 6).toDouble())
                return QStringLiteral("value");
        }
    }
    return QString();
}

Shape shapeOf(int rowsPerPage, int cols, int rows, int flags)
{
    return {rowsPerPage, cols, rows, (flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0, (flags & 8) != 0};
}

void addFlags()
{
    QTest::addColumn<int>("flags");
    for (int flags = 0; flags < 16; ++flags)
        QTest::newRow(qPrintable(described(shapeOf(0, 0, 0, flags)).section(", ", 3))) << flags;
}

} // namespace

void TestRptCrossTabGrid::rowCounts()
{
    for (int flags = 0; flags < 16; ++flags) {
        for (int rowsPerPage = 1; rowsPerPage < 40; ++rowsPerPage) {
            const auto field = fieldOf(shapeOf(rowsPerPage, 1, 1, flags));
            for (int rows = 0; rows < 200; ++rows) {
                field->crossTab->setRowCount(rows);
                QCOMPARE(field->crossTab->rowCount, rowCountOf(shapeOf(rowsPerPage, 1, rows, flags)));
            }
        }
    }
}

void TestRptCrossTabGrid::smallShapes_data()
{
    addFlags();
}

void TestRptCrossTabGrid::smallShapes()
{
    QFETCH(int, flags);
    QRandomGenerator random(7);
    for (int rowsPerPage = 1; rowsPerPage < 6; ++rowsPerPage) {
        for (int cols = 1; cols < 4; ++cols) {
            for (int rows = 1; rows < 12; ++rows) {
                const Shape shape = shapeOf(rowsPerPage, cols, rows, flags);
                const QString found = difference(shape, &random);
                QVERIFY2(found.isEmpty(), qPrintable(found + ": " + described(shape)));
            }
        }
    }
}

void TestRptCrossTabGrid::randomShapes_data()
{
    addFlags();
}

void TestRptCrossTabGrid::randomShapes()
{
    QFETCH(int, flags);
    QRandomGenerator random(static_cast<quint32>(flags) + 1);
    for (int round = 0; round < 150; ++round) {
        const Shape shape = shapeOf(random.bounded(1, 30), random.bounded(1, 9), random.bounded(1, 60), flags);
        const QString found = difference(shape, &random);
        QVERIFY2(found.isEmpty(), qPrintable(found + ": " + described(shape)));
    }
}

void TestRptCrossTabGrid::everyDataRowHasItsNumber()
{
    // 10 rows to a page, the first a header and the last a subtotal: 8 rows of data on each.
    const auto field = fieldOf(shapeOf(10, 1, 16, 4 | 8));
    const RptCrossTabObject *const table = field->crossTab;
    QCOMPARE(table->rowCount, 20);
    QVector<int> numbers;
    for (const RptFieldObject *cell : qAsConst(table->fieldList)) {
        if (!table->isHeaderCell(cell) && !table->isTotalCell(cell))
            numbers.append(table->cellRow(cell, false));
    }
    QCOMPARE(numbers, QVector<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
}

QTEST_MAIN(TestRptCrossTabGrid)
#include "tst_rptcrosstabgrid.moc"
