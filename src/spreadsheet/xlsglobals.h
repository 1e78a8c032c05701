#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/xlspalette.h"

namespace Spreadsheet {

/// Begins a substream, of the whole workbook or of one sheet: BOF.
enum class Substream { Globals = 0x0005, Sheet = 0x0010 };
void writeBof(RecordStream &stream, Substream kind);
/// Ends a substream: EOF.
void writeEof(RecordStream &stream);

/// One field of 16 bits, as many records are.
struct FlagRecord {
    Biff::Record type;
    int value;
};

/// Writes what belongs to no sheet. Returns where in the stream each sheet's place is to be patched in.
std::vector<quint32> writeGlobals(RecordStream &stream, const WorkbookData &book, const XlsPalette &palette);

} // namespace Spreadsheet
