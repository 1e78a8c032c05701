#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/rowheights.h"
#include "spreadsheet/sheetrows.h"

namespace Spreadsheet {

/// The rows of a sheet, in blocks of 32: ROW of each, then their cells, then a DBCELL that tells where they are.
class XlsRows {
public:
    /// All outlive the rows; book and sheet stay as they are.
    XlsRows(RecordStream &stream, const WorkbookData &book, const SheetData &sheet);

    /// The height in twips of rows that nothing is said about.
    int defaultHeight() const { return m_heights.defaultTwips(); }

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
    const RowHeights m_heights;
    SheetRows m_rows;
    quint32 m_texts = 0;
    quint32 m_nextIndexPlace = 0; ///< where the next block's place belongs
};

} // namespace Spreadsheet
