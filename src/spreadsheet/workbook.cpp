#include "spreadsheet/workbook.h"

#include <algorithm>
#include <array>

namespace Spreadsheet {

namespace {

constexpr int firstPaletteColor = 8;

/// The colours 8 to 63 of every new workbook: those of the XLS format (PALETTE record, [MS-XLS] 2.5.161 Icv).
constexpr std::array<int, 56> standardPalette = {
    0x000000, 0xffffff, 0xff0000, 0x00ff00, 0x0000ff, 0xffff00, 0xff00ff, 0x00ffff, // 8
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xc0c0c0, 0x808080, // 16
    0x9999ff, 0x993366, 0xffffcc, 0xccffff, 0x660066, 0xff8080, 0x0066cc, 0xccccff, // 24
    0x000080, 0xff00ff, 0xffff00, 0x00ffff, 0x800080, 0x800000, 0x008080, 0x0000ff, // 32
    0x00ccff, 0xccffff, 0xccffcc, 0xffff99, 0x99ccff, 0xff99cc, 0xcc99ff, 0xffcc99, // 40
    0x3366ff, 0x33cccc, 0x99cc00, 0xffcc00, 0xff9900, 0xff6600, 0x666699, 0x969696, // 48
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333, // 56
};

bool standsBefore(const Cell &cell, int col)
{
    return cell.col < col;
}

} // namespace

CellGrid::Row &CellGrid::rowAt(int row)
{
    const auto index = std::size_t(row);
    if (index >= m_rows.size())
        m_rows.resize(index + 1);
    Row &cells = m_rows[index];
    // The rows of a table are alike: room for as many cells as the row above has saves moving them as they come.
    if (cells.empty() && index > 0)
        cells.reserve(m_rows[index - 1].size());
    return cells;
}

void CellGrid::include(int col)
{
    m_firstColumn = std::min(m_firstColumn, col);
    m_columnCount = std::max(m_columnCount, col + 1);
}

Cell &CellGrid::at(int row, int col)
{
    Row &cells = rowAt(row);
    if (cells.empty() || cells.back().col < col) {
        include(col);
        Cell &cell = cells.emplace_back();
        cell.col = quint16(col);
        return cell;
    }
    if (cells.back().col == col)
        return cells.back();
    auto place = std::lower_bound(cells.begin(), cells.end(), col, standsBefore);
    if (place->col != col) {
        include(col);
        place = cells.emplace(place);
        place->col = quint16(col);
    }
    return *place;
}

const Cell *CellGrid::find(int row, int col) const
{
    if (row >= rowCount())
        return nullptr;
    const Row &cells = this->row(row);
    if (cells.empty() || cells.back().col < col)
        return nullptr;
    if (cells.back().col == col)
        return &cells.back();
    const auto place = std::lower_bound(cells.begin(), cells.end(), col, standsBefore);
    return place->col == col ? &*place : nullptr;
}

int paletteRgb(Color color)
{
    const int index = color - firstPaletteColor;
    return index >= 0 && index < int(standardPalette.size()) ? standardPalette[std::size_t(index)] : 0;
}

} // namespace Spreadsheet
