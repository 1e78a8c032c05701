#pragma once

#include "spreadsheet/recordstream.h"
#include "spreadsheet/workbook.h"

namespace Spreadsheet {

/// Writes the cells of one row: LABELSST for texts; RK for numbers that it holds exactly and NUMBER for others; BLANK.
/// Several of RK or BLANK beside each other become one MULRK or MULBLANK. Returns the number of texts.
int writeCells(RecordStream &stream, int row, const CellGrid::Row &cells);

} // namespace Spreadsheet
