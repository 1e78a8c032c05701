#include "spreadsheet/coveredcells.h"

#include <algorithm>
#include <iterator>

namespace Spreadsheet {

namespace {

bool isLeft(const Cell &a, const Cell &b)
{
    return a.col < b.col;
}

qint64 cellCount(const MergeData &merge)
{
    return qint64(merge.rowLast - merge.rowFirst + 1) * (merge.colLast - merge.colFirst + 1);
}

quint16 formatOf(const Cell *cell, quint16 otherwise)
{
    return cell && cell->format != 0 ? cell->format : otherwise;
}

} // namespace

CoveredCells::CoveredCells(const SheetData &sheet)
    : m_sheet(sheet)
{
    qint64 count = 0;
    for (const MergeData &merge : sheet.merges)
        count += cellCount(merge);
    m_few = count <= most;
    if (!m_few)
        return;
    for (const MergeData &merge : sheet.merges)
        cover(merge);
    for (CellGrid::Row &row : m_rows)
        std::sort(row.begin(), row.end(), isLeft);
}

void CoveredCells::cover(const MergeData &merge)
{
    const quint16 look = formatOf(m_sheet.cells.find(merge.rowFirst, merge.colFirst), 0);
    for (int row = merge.rowFirst; row <= merge.rowLast; ++row) {
        CellGrid::Row &cells = m_rows[row];
        for (int col = merge.colFirst; col <= merge.colLast; ++col) {
            const Cell *const written = m_sheet.cells.find(row, col);
            const bool isFirst = row == merge.rowFirst && col == merge.colFirst;
            if (isFirst || (look == 0 && !written))
                continue;
            Cell blank;
            blank.col = quint16(col);
            blank.format = formatOf(written, look);
            cells.push_back(blank);
        }
    }
    m_lastRow = std::max(m_lastRow, merge.rowLast);
}

const CellGrid::Row &CoveredCells::row(int row, CellGrid::Row *buffer) const
{
    static const CellGrid::Row nothing;
    const CellGrid::Row &written = row < m_sheet.cells.rowCount() ? m_sheet.cells.row(row) : nothing;
    const auto covered = m_rows.constFind(row);
    if (covered == m_rows.constEnd())
        return written;
    buffer->clear();
    // Of two cells at one place the first one is taken.
    std::set_union(covered->begin(), covered->end(), written.begin(), written.end(), std::back_inserter(*buffer),
                   isLeft);
    return *buffer;
}

} // namespace Spreadsheet
