#pragma once

#include "spreadsheet/workbook.h"

#include <QHash>
#include <QSet>

#include <vector>

namespace Spreadsheet {

/// How high the rows of a sheet must be that were given no height: programs that print or convert a file take rows as
/// high as it says, and do not look at what is in them.
///
/// The height is that of the largest font, times the lines where a text is wrapped. How many these are is an estimate
/// by the kind of each character ("02. 11. 2026" is a little wider than ten digits: eight digits and four narrow
/// signs), rather too many than too few, for no font is at hand where a file is written. Merged cells are as wide as
/// those of them that show; a text in cells of several rows does not count.
class RowHeights {
public:
    /// `book` must outlive it; both stay as they are.
    RowHeights(const WorkbookData &book, const SheetData &sheet);

    /// The height in twips (1/20 point) of rows that nothing is said about: one line of the default font.
    int defaultTwips() const { return m_lines.front().twips; }
    /// What a row with these cells needs, in twips, `defaultTwips` or more.
    int neededTwips(int row, const CellGrid::Row &cells) const;

private:
    /// One line in a format.
    struct Line {
        int twips;
        double digits; ///< width of a character in digits of the default font
        bool wraps;
    };

    void setDigits(int col, const ColumnData &column);
    double digitsAt(int col) const;
    double digitsOf(const MergeData &merge) const;
    int lineCount(int row, const Cell &cell) const;

    const WorkbookData &m_book;
    std::vector<Line> m_lines; ///< by format
    std::vector<double> m_digits; ///< width by column
    QHash<quint64, double> m_wide; ///< width of merged cells within a row, by the first of them
    QSet<quint64> m_high; ///< the first cells of those over several rows
};

} // namespace Spreadsheet
