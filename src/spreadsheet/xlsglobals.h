#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/xlspalette.h"

namespace Spreadsheet {

/// Begins a substream, of the whole workbook or of one sheet: BOF.
enum class Substream { Globals = 0x0005, Sheet = 0x0010 };
void writeBof(RecordStream &stream, Substream kind);
/// Ends a substream: EOF.
void writeEof(RecordStream &stream);

/// Where in the stream values belong that are known only when the sheets are written, to be patched in.
struct OpenPlaces {
    std::vector<quint32> sheets; ///< where each sheet begins
    quint32 textCells; ///< the number of cells with a text
};

/// Writes what belongs to no sheet.
OpenPlaces writeGlobals(RecordStream &stream, const WorkbookData &book, const XlsPalette &palette);

} // namespace Spreadsheet
