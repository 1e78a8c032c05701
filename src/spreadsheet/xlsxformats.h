#pragma once

#include "spreadsheet/workbook.h"

#include <vector>
#include <xlsxwriter.h>

namespace Spreadsheet {

/// The formats of a book in libxlsxwriter, each made once.
class XlsxFormats {
public:
    /// `workbook` and `book` must outlive it.
    XlsxFormats(lxw_workbook *workbook, const WorkbookData &book);

    /// Makes them, and gives the default font to cells without a format. False with the reason in `error` for a name
    /// that the library would cut off.
    bool make(QString *error);
    /// The format of that index in `WorkbookData::formats`. That of 0 hides the formats of the cell's column and row,
    /// which a null pointer would let through.
    lxw_format *at(int index) const { return m_formats[std::size_t(index)]; }

private:
    bool fill(lxw_format *format, const FormatData &data, QString *error) const;
    bool setFont(lxw_format *format, const FontData &font, QString *error) const;
    bool setNumFormat(lxw_format *format, int numFormat, QString *error) const;

    lxw_workbook *const m_workbook;
    const WorkbookData &m_book;
    std::vector<lxw_format *> m_formats; ///< of the library
};

} // namespace Spreadsheet
