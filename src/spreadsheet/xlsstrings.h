#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/texttable.h"

namespace Spreadsheet {

/// Writes the shared strings of a workbook: SST with as many CONTINUE records as it takes, and EXTSST, by which a
/// reader finds a string without reading those before it. Returns where in the stream the number of cells that show one
/// of them is to be patched in.
quint32 writeSharedStrings(RecordStream &stream, const TextTable &texts);

} // namespace Spreadsheet
