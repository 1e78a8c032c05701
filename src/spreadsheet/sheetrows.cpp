#include "spreadsheet/sheetrows.h"

#include <algorithm>
#include <limits>

namespace Spreadsheet {

namespace {

Cell blankCell(int col, quint16 format)
{
    Cell cell;
    cell.col = quint16(col);
    cell.format = format;
    return cell;
}

bool standsBefore(const Cell &cell, int col)
{
    return cell.col < col;
}

} // namespace

SheetRows::SheetRows(const SheetData &sheet)
    : m_sheet(sheet)
{
    collectMerges();
    measure();
}

void SheetRows::collectMerges()
{
    for (const MergeData &merge : m_sheet.merges) {
        const Cell *first = m_sheet.cells.find(merge.rowFirst, merge.colFirst);
        m_merges.append({merge, first ? first->format : quint16(0)});
    }
    std::sort(m_merges.begin(), m_merges.end(),
              [](const FormattedMerge &a, const FormattedMerge &b) { return a.place.rowFirst < b.place.rowFirst; });
}

void SheetRows::include(int row, int colFirst, int colEnd)
{
    m_range.rowFirst = std::min(m_range.rowFirst, row);
    m_range.rowEnd = std::max(m_range.rowEnd, row + 1);
    m_range.colFirst = std::min(m_range.colFirst, colFirst);
    m_range.colEnd = std::max(m_range.colEnd, colEnd);
}

void SheetRows::measure()
{
    constexpr int none = std::numeric_limits<int>::max();
    m_range.rowFirst = m_range.colFirst = none;
    const CellGrid &grid = m_sheet.cells;
    if (grid.rowCount() > 0) {
        int row = 0;
        while (grid.row(row).empty())
            ++row;
        include(row, grid.firstColumn(), grid.columnCount());
        include(grid.rowCount() - 1, grid.firstColumn(), grid.columnCount());
    }
    for (auto row = m_sheet.rows.begin(); row != m_sheet.rows.end(); ++row)
        include(row.key(), none, 0);
    for (const FormattedMerge &merge : std::as_const(m_merges)) {
        if (merge.format == 0)
            continue;
        include(merge.place.rowFirst, merge.place.colFirst, merge.place.colLast + 1);
        include(merge.place.rowLast, merge.place.colFirst, merge.place.colLast + 1);
    }
    m_range.rowFirst = std::min(m_range.rowFirst, m_range.rowEnd);
    m_range.colFirst = std::min(m_range.colFirst, m_range.colEnd);
}

void SheetRows::advance(int row)
{
    m_active.erase(std::remove_if(m_active.begin(), m_active.end(),
                                  [row](const FormattedMerge &merge) { return merge.place.rowLast < row; }),
                   m_active.end());
    while (m_nextMerge < m_merges.size() && m_merges.at(m_nextMerge).place.rowFirst <= row) {
        if (m_merges.at(m_nextMerge).place.rowLast >= row)
            m_active.append(m_merges.at(m_nextMerge));
        ++m_nextMerge;
    }
}

/// Makes the covered cells of a row blank, and those that are missing where they have a format to show.
void SheetRows::cover(CellGrid::Row &cells, int row, const FormattedMerge &merge)
{
    const MergeData &place = merge.place;
    const int first = row == place.rowFirst ? place.colFirst + 1 : place.colFirst;
    auto at = std::lower_bound(cells.begin(), cells.end(), first, standsBefore);
    for (int col = first; col <= place.colLast; ++col) {
        const bool isWritten = at != cells.end() && at->col == col;
        if (isWritten)
            *at = blankCell(col, at->format > 0 ? at->format : merge.format);
        else if (merge.format > 0)
            at = cells.insert(at, blankCell(col, merge.format));
        else
            continue;
        ++at;
    }
}

const CellGrid::Row &SheetRows::cells(int row, CellGrid::Row &own)
{
    static const CellGrid::Row noCells;
    advance(row);
    const CellGrid::Row &written = row < m_sheet.cells.rowCount() ? m_sheet.cells.row(row) : noCells;
    if (m_active.isEmpty())
        return written;
    own = written;
    for (const FormattedMerge &merge : std::as_const(m_active))
        cover(own, row, merge);
    return own;
}

} // namespace Spreadsheet
