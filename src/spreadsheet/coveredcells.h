#pragma once

#include "spreadsheet/workbook.h"

#include <QHash>

namespace Spreadsheet {

/// What a file holds in the cells that merged ranges cover, all but the first one of each range: blanks, so that
/// nothing hides under a range, with the look of the first cell, so that its borders and fill reach to the edges.
class CoveredCells {
public:
    /// The most that are made for a sheet; each is written like any other cell.
    static constexpr qint64 most = 4'000'000;

    /// `sheet` must outlive it and stay as it is.
    explicit CoveredCells(const SheetData &sheet);

    /// False where there are more than `most`; there are none then.
    bool areFew() const { return m_few; }
    /// The last row of one, -1 if there are none.
    int lastRow() const { return m_lastRow; }
    /// The cells of a row as the file has them: those of the sheet, but for the covered ones. `buffer` may be what it
    /// refers to.
    const CellGrid::Row &row(int row, CellGrid::Row *buffer) const;

private:
    void cover(const MergeData &merge);

    const SheetData &m_sheet;
    QHash<int, CellGrid::Row> m_rows; ///< of covered cells, each by column
    int m_lastRow = -1;
    bool m_few;
};

} // namespace Spreadsheet
