#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/xlspalette.h"

namespace Spreadsheet {

/// The number in the file of a format of `WorkbookData::formats`: 15 belong to the styles.
constexpr int xfOf(int format)
{
    return 15 + format;
}

/// Writes fonts, number formats, formats and colours of a workbook: FONT, FORMAT, XF, STYLE and PALETTE.
void writeStyles(RecordStream &stream, const WorkbookData &book, const XlsPalette &palette);

} // namespace Spreadsheet
