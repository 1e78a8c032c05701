#include "spreadsheet/xlsrows.h"

#include "spreadsheet/units.h"
#include "spreadsheet/xlscells.h"
#include "spreadsheet/xlsstyles.h"

#include <algorithm>
#include <array>

namespace Spreadsheet {

XlsRows::XlsRows(RecordStream &stream, const WorkbookData &book, const SheetData &sheet)
    : m_stream(stream)
    , m_sheet(sheet)
    , m_heights(book, sheet)
    , m_rows(sheet)
{
}

void XlsRows::writeIndex()
{
    const auto &range = m_rows.range();
    const int blocks = (range.rowEnd - range.rowFirst + blockSize - 1) / blockSize;
    m_stream.begin(Biff::INDEX).u32(0).u32(quint32(range.rowFirst)).u32(quint32(range.rowEnd)).u32(0);
    m_nextIndexPlace = m_stream.position();
    m_stream.fill(0, 4 * blocks).end();
}

void XlsRows::writeDimensions()
{
    const auto &range = m_rows.range();
    m_stream.begin(Biff::DIMENSIONS).u32(quint32(range.rowFirst)).u32(quint32(range.rowEnd));
    m_stream.u16(range.colFirst).u16(range.colEnd).u16(0).end();
}

quint32 XlsRows::writeRows()
{
    const auto &range = m_rows.range();
    for (int row = range.rowFirst; row < range.rowEnd; row += blockSize)
        writeBlock(row, std::min(row + blockSize, range.rowEnd));
    return m_texts;
}

bool XlsRows::exists(int row, const CellGrid::Row &cells) const
{
    return !cells.empty() || m_sheet.rows.contains(row);
}

/// ROW
void XlsRows::writeRow(int row, const CellGrid::Row &cells)
{
    constexpr quint32 always = 0x100;
    constexpr quint32 hidden = 0x20;
    constexpr quint32 ownHeight = 0x40;
    constexpr quint32 ownFormat = 0x80;
    const RowData data = m_sheet.rows.value(row);
    const bool hasHeight = data.height > 0;
    quint32 options = always | quint32(xfOf(data.format)) << 16;
    options |= data.hidden || data.height == 0 ? hidden : 0;
    options |= hasHeight ? ownHeight : 0;
    options |= data.format > 0 ? ownFormat : 0;
    m_stream.begin(Biff::ROW).u16(row);
    m_stream.u16(cells.empty() ? 0 : cells.front().col).u16(cells.empty() ? 0 : cells.back().col + 1);
    m_stream.u16(hasHeight ? twips(data.height) : m_heights.neededTwips(row, cells)).u16(0).u16(0).u32(options).end();
}

/// One block. DBCELL counts bytes: from the first ROW to itself, then from the second ROW to the first row's cells, and
/// from each row's cells to the next one's.
void XlsRows::writeBlock(int rowFirst, int rowEnd)
{
    constexpr quint32 rowRecordSize = 20;
    std::array<CellGrid::Row, blockSize> own;
    std::array<const CellGrid::Row *, blockSize> block;
    const quint32 start = m_stream.position();
    for (int row = rowFirst; row < rowEnd; ++row) {
        const auto index = std::size_t(row - rowFirst);
        block[index] = &m_rows.cells(row, own[index]);
        if (exists(row, *block[index]))
            writeRow(row, *block[index]);
    }
    std::array<quint32, blockSize> places;
    std::size_t count = 0;
    for (int row = rowFirst; row < rowEnd; ++row) {
        const CellGrid::Row &cells = *block[std::size_t(row - rowFirst)];
        if (!exists(row, cells))
            continue;
        places[count++] = m_stream.position();
        m_texts += quint32(writeCells(m_stream, row, cells));
    }
    m_stream.patch(m_nextIndexPlace, m_stream.position());
    m_nextIndexPlace += sizeof(quint32);
    m_stream.begin(Biff::DBCELL).u32(count > 0 ? m_stream.recordPosition() - start : 0);
    quint32 from = start + rowRecordSize;
    for (std::size_t index = 0; index < count; ++index) {
        m_stream.u16(int(places[index] - from));
        from = places[index];
    }
    m_stream.end();
}

} // namespace Spreadsheet
