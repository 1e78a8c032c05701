#pragma once

#include "spreadsheet/book.h"
#include "spreadsheet/texttable.h"

#include <QMap>
#include <QVector>

#include <algorithm>
#include <deque>
#include <limits>
#include <vector>

/// What a book holds until it is saved: plain values, filled by the operations of spreadsheet/book.h and read by the
/// writers of the two file formats. Everything in here is within the limits of the book's format already, but for the
/// number of colours.
namespace Spreadsheet {

struct FontData {
    QString name;
    int size = 10; ///< points
    bool bold = false;
    Color color = colorAutomatic;
};

struct SideData {
    BorderStyle style = BorderStyle::None;
    Color color = colorAutomatic;
};

struct FormatData {
    int font = 0; ///< index into `WorkbookData::fonts`
    int numFormat = generalNumFormat;
    AlignH alignH = AlignH::General;
    AlignV alignV = AlignV::Bottom;
    bool wrap = false;
    SideData left;
    SideData right;
    SideData top;
    SideData bottom;
    FillPattern fill = FillPattern::None;
    Color foreground = colorAutomatic;
};

/// One cell, in 16 bytes: there may be millions.
struct Cell {
    static constexpr qint32 isNumber = -1;
    static constexpr qint32 isBlank = -2;

    double number = 0;
    qint32 text = isBlank; ///< number in `WorkbookData::texts`, `isNumber` or `isBlank`
    quint16 col = 0;
    quint16 format = 0; ///< index into `WorkbookData::formats`
};

/// The cells of a sheet, row by row, each row by column. Writing from left to right and downwards is fastest.
class CellGrid {
public:
    using Row = std::vector<Cell>;

    /// The cell, made blank if it is not there.
    Cell &at(int row, int col);
    /// Null if it was never written.
    const Cell *find(int row, int col) const;
    /// Number of rows up to the last one with a cell.
    int rowCount() const { return int(m_rows.size()); }
    /// The first column with a cell, and the number of columns up to the last one with a cell; both 0 for no cells.
    int firstColumn() const { return std::min(m_firstColumn, m_columnCount); }
    int columnCount() const { return m_columnCount; }
    /// A row below `rowCount`.
    const Row &row(int row) const { return m_rows[std::size_t(row)]; }

private:
    Row &rowAt(int row);
    void include(int col);

    std::vector<Row> m_rows;
    int m_firstColumn = std::numeric_limits<int>::max();
    int m_columnCount = 0;
};

struct ColumnData {
    double width = -1; ///< digits of the default font; -1 for the usual width
    int format = 0;
    bool hidden = false;
};

struct RowData {
    double height = -1; ///< points; -1 for what the content needs
    int format = 0;
    bool hidden = false;
};

/// Cells that are one, first and last included.
struct MergeData {
    int rowFirst;
    int rowLast;
    int colFirst;
    int colLast;
};

struct SheetData {
    QString name;
    CellGrid cells;
    QMap<int, ColumnData> columns;
    QMap<int, RowData> rows;
    QVector<MergeData> merges; ///< none over another
    bool displayGridlines = true;
    bool printGridlines = false;
    // Inches.
    double marginLeft = 0.75;
    double marginRight = 0.75;
    double marginTop = 1;
    double marginBottom = 1;
    int fitWidth = -1; ///< pages across; 0 as many as it takes; -1 not fitted
    int fitHeight = -1;
    bool landscape = false;
    Paper paper = PAPER_DEFAULT;
    int repeatFirst = -1; ///< -1 for no repeated rows
    int repeatLast = -1;
    QString footer; ///< of the middle, without the "&C" of the file formats
};

/// The first number of a custom number format; those below belong to the file formats.
constexpr int firstCustomNumFormat = 164;

struct WorkbookData {
    QVector<FontData> fonts; ///< 0 is the default font
    QVector<FormatData> formats; ///< 0 is the default look
    QVector<QString> numFormats; ///< by number, from `firstCustomNumFormat`
    std::deque<SheetData> sheets; ///< at least one when a book is saved
    TextTable texts;
};

/// The colour of `colorPack` as 0xRRGGBB.
constexpr int rgbOf(Color color)
{
    return color & 0xffffff;
}
/// Whether it is one of `colorPack`, not an index into the palette.
constexpr bool isRgb(Color color)
{
    return (color & 0x1000000) != 0;
}
/// 0xRRGGBB of a colour of the standard palette, from 8 to 63; that of the automatic colour is black.
int paletteRgb(Color color);

} // namespace Spreadsheet
