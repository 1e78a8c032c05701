#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/workbook.h"

namespace Spreadsheet {

/// Writes the substream of one sheet. `isFirst` for the one that a program shows when it opens the file.
/// Returns the number of cells with a text.
quint32 writeSheet(RecordStream &stream, const WorkbookData &book, const SheetData &sheet, bool isFirst);

} // namespace Spreadsheet
