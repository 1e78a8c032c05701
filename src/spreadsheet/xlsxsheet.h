#pragma once

#include "spreadsheet/rowheights.h"
#include "spreadsheet/workbook.h"
#include "spreadsheet/xlsxformats.h"

#include <xlsxwriter.h>

namespace Spreadsheet {

/// Writes one sheet through libxlsxwriter, row by row, as the library's mode of constant memory demands.
class XlsxSheet {
public:
    /// All must outlive it; `formats` are made.
    XlsxSheet(const SheetData &sheet, const WorkbookData &book, const XlsxFormats &formats, lxw_worksheet *worksheet);

    /// False with the reason in `error`. To be called once.
    bool write(QString *error);
    /// How many cells the file must have.
    qint64 cellCount() const { return m_cellCount; }

private:
    bool setColumns();
    bool setColumn(lxw_col_t col, const ColumnData &data);
    void setPage();
    bool setPrint();
    bool areMergesSmall() const;
    bool setMerges();
    bool writeRows();
    bool setRow(lxw_row_t row, const CellGrid::Row &cells);
    double heightOf(int row, const CellGrid::Row &cells) const;
    bool writeCell(lxw_row_t row, const Cell &cell);
    bool writeBlank(lxw_row_t row, const Cell &cell);
    bool writeText(lxw_row_t row, const Cell &cell);
    /// Notes what a call of the library gave.
    bool passes(lxw_error result);

    const SheetData &m_sheet;
    const TextTable &m_texts;
    const RowHeights m_heights;
    const XlsxFormats &m_formats;
    lxw_worksheet *const m_worksheet;
    qint64 m_cellCount = 0;
    QString m_error;
};

} // namespace Spreadsheet
