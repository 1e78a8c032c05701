#pragma once

#include <QColor>
#include <QList>
#include <QMetaType>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

class QDomElement;
class RptFieldObject;

/// What a spreadsheet would need of a painted cell. Reserved; nothing reads it.
struct RptCrossTabElement {
    RptFieldObject *cell = nullptr;
    QVariant text;
    QPoint position;
};

/// The grid of a cross table: generated label cells, which it owns, row by row. Its caller shapes it with
/// `setColCount`, `setRowCount` and `colHeader` before the first paint, and fills each cell as the engine offers it.
///
/// With `rpp` rows to a page (`visibleRowCount`), each block of `rpp` rows may begin with a header row and end with a
/// subtotal row; the grid may end with a row and a column of totals.
class RptCrossTabObject {
public:
    RptCrossTabObject();
    /// The same grid with clones of the cells, for Qt's meta-types; `elements` stays empty.
    RptCrossTabObject(const RptCrossTabObject &other);
    RptCrossTabObject &operator=(const RptCrossTabObject &other) = delete;
    ~RptCrossTabObject();

    /// Takes the eight parameters from a field element; the rest stays.
    void readCrossTabElement(const QDomElement &element);
    /// Writes the eight parameters, in the order in which they are read.
    void writeCrossTabElement(QDomElement element) const;

    /// Makes the cells anew from the present counts. None with a count of 0, and none, with a warning, with more than
    /// half a million of them. Each cell starts with its column's header as value.
    void buildCells();
    /// Whole rows that fit the parent field; 0 without a parent, or with a row height below 1.
    int visibleRowCount() const;
    /// `n` columns of data, and one more for totals if they are on.
    void setColCount(int n);
    /// `n` rows of data, with the header, subtotal and total rows that they bring: 50 rows of data with 20 to a page
    /// and all three kinds are 50 + 3 + 3 + 1.
    void setRowCount(int n);
    /// The cell's row in the grid, or without the header and subtotal rows before it: one row less for each block
    /// before it, subtotals visible or not, and one header less for each of these and for its own. -1 for a foreign
    /// cell.
    int cellRow(const RptFieldObject *cell, bool withHeaders) const;
    /// The cell's column, -1 for a foreign cell.
    int cellCol(const RptFieldObject *cell) const;
    bool isHeaderCell(const RptFieldObject *cell) const;
    bool isTotalCell(const RptFieldObject *cell) const;
    /// Gives a cell the header of its column, if there is one.
    void applyColumnHeader(RptFieldObject *cell) const;
    /// Gives a total cell, not a header, its sum as text: in the last column of the rest of its row, in the last row of
    /// its column, else of its column within the block. Total cells do not count in the sum of a column.
    void computeTotalCell(RptFieldObject *cell) const;

    QString name;
    QRect rect{QPoint(0, 0), QPoint(499, 499)};
    QList<RptFieldObject *> fieldList;
    RptFieldObject *parentField = nullptr;
    QStringList colHeader;
    QColor totalBackgroundColor = Qt::white;
    QColor headerBackgroundColor = Qt::white;
    int colCount = 3;
    int rowCount = 3;
    int rowHeight = 20; ///< template units
    int processedCount = 0; ///< cells that are painted already
    bool totalByRowVisible = false;
    bool totalByColVisible = false;
    bool subtotalIsVisible = false;
    bool headerIsVisible = false;
    QVector<RptCrossTabElement> elements;

private:
    struct Position {
        int row = -1;
        int col = -1;
    };

    Position positionOf(const RptFieldObject *cell) const;
    RptFieldObject *makeCell(int row, int col);
    /// Blocks that end before the row.
    int blockOf(int row) const;
    bool isHeaderRow(int row) const;
    bool isTotalAt(int row, int col) const;
    double sumOfRow(int row, const RptFieldObject *besides) const;
    double sumOfColumn(int row, int col) const;

    mutable int m_lastIndex = 0; ///< of the cell that was looked for last
};

Q_DECLARE_METATYPE(RptCrossTabObject)
