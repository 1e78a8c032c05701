#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/sheetrows.h"

namespace Spreadsheet {

/// The rows of a sheet, in blocks of 32: ROW of each, then their cells, then a DBCELL that tells where they are.
class XlsRows {
public:
    /// `defaultHeight` in twips, for rows without a height of their own.
    XlsRows(RecordStream &stream, const SheetData &sheet, int defaultHeight);

    /// The record before them that tells where the blocks' DBCELL are: INDEX.
    void writeIndex();
    /// The used range: DIMENSIONS.
    void writeDimensions();
    /// All rows. `writeIndex` came before. Returns the number of cells with a text.
    quint32 writeRows();

private:
    static constexpr int blockSize = 32;

    void writeBlock(int rowFirst, int rowEnd);
    void writeRow(int row, const CellGrid::Row &cells);
    bool exists(int row, const CellGrid::Row &cells) const;

    RecordStream &m_stream;
    const SheetData &m_sheet;
    const int m_defaultHeight;
    SheetRows m_rows;
    quint32 m_texts = 0;
    quint32 m_nextIndexPlace = 0; ///< where the next block's place belongs
};

} // namespace Spreadsheet
