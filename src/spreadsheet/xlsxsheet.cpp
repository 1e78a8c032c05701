#include "spreadsheet/xlsxsheet.h"

#include "spreadsheet/sheetrows.h"
#include "spreadsheet/units.h"
#include "spreadsheet/xlsxtext.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Spreadsheet {

namespace {

double points(int twips)
{
    return twips / 20.0;
}

/// The library keeps nothing of a size that is its own default: a row of that height would be fitted to its content, a
/// hidden column come back with no width. The next number is written with the same digits.
double besideDefault(double size, double libraryDefault)
{
    return size == libraryDefault ? std::nextafter(size, std::numeric_limits<double>::max()) : size;
}

} // namespace

XlsxSheet::XlsxSheet(const SheetData &sheet, const WorkbookData &book, const XlsxFormats &formats,
                     lxw_worksheet *worksheet)
    : m_sheet(sheet)
    , m_texts(book.texts)
    , m_heights(book, sheet)
    , m_formats(formats)
    , m_worksheet(worksheet)
{
}

bool XlsxSheet::passes(lxw_error result)
{
    if (result != LXW_NO_ERROR)
        m_error = QLatin1String(lxw_strerror(result));
    return result == LXW_NO_ERROR;
}

bool XlsxSheet::write(QString *error)
{
    setPage();
    if (!areMergesSmall())
        m_error = QStringLiteral("its merged cells cover too many");
    else if (setPrint() && setColumns() && setMerges() && writeRows())
        return true;
    *error = QStringLiteral("sheet \"%1\": %2").arg(m_sheet.name, m_error);
    return false;
}

void XlsxSheet::setPage()
{
    worksheet_gridlines(m_worksheet, LXW_HIDE_ALL_GRIDLINES);
    if (m_sheet.displayGridlines)
        worksheet_gridlines(m_worksheet, LXW_SHOW_SCREEN_GRIDLINES);
    if (m_sheet.printGridlines)
        worksheet_gridlines(m_worksheet, LXW_SHOW_PRINT_GRIDLINES);
    worksheet_set_margins(m_worksheet, m_sheet.marginLeft, m_sheet.marginRight, m_sheet.marginTop,
                          m_sheet.marginBottom);
    if (m_sheet.fitWidth >= 0 || m_sheet.fitHeight >= 0)
        worksheet_fit_to_pages(m_worksheet, uint16_t(std::max(0, m_sheet.fitWidth)),
                               uint16_t(std::max(0, m_sheet.fitHeight)));
    if (m_sheet.landscape)
        worksheet_set_landscape(m_worksheet);
    if (m_sheet.paper != PAPER_DEFAULT)
        worksheet_set_paper(m_worksheet, uint8_t(m_sheet.paper));
}

bool XlsxSheet::setPrint()
{
    if (m_sheet.repeatFirst >= 0
        && !passes(worksheet_repeat_rows(m_worksheet, lxw_row_t(m_sheet.repeatFirst), lxw_row_t(m_sheet.repeatLast))))
        return false;
    lxw_header_footer_options options = {};
    options.margin = footerMargin(m_sheet.marginBottom);
    const QByteArray footer = xlsxName(QLatin1String("&C") + m_sheet.footer);
    return m_sheet.footer.isEmpty() || passes(worksheet_set_footer_opt(m_worksheet, footer.constData(), &options));
}

bool XlsxSheet::setColumns()
{
    for (auto column = m_sheet.columns.begin(); column != m_sheet.columns.end(); ++column) {
        if (!setColumn(lxw_col_t(column.key()), *column))
            return false;
    }
    return true;
}

bool XlsxSheet::setColumn(lxw_col_t col, const ColumnData &data)
{
    const double width = data.width < 0 ? LXW_DEF_COL_WIDTH : data.width;
    lxw_row_col_options options = {};
    options.hidden = data.hidden;
    return passes(worksheet_set_column_opt(m_worksheet, col, col, besideDefault(width, LXW_DEF_COL_WIDTH),
                                           data.format == 0 ? nullptr : m_formats.at(data.format), &options));
}

/// Each cell that is covered by one with a look is written. A merged cell over the whole sheet would be 17 thousand
/// million.
bool XlsxSheet::areMergesSmall() const
{
    constexpr qint64 most = 4'000'000;
    qint64 count = 0;
    for (const MergeData &merge : m_sheet.merges) {
        const Cell *const first = m_sheet.cells.find(merge.rowFirst, merge.colFirst);
        if (first && first->format != 0)
            count += qint64(merge.rowLast - merge.rowFirst + 1) * (merge.colLast - merge.colFirst + 1);
    }
    return count <= most;
}

/// Only the ranges: their cells are written with their rows, which a format given here would mix up.
bool XlsxSheet::setMerges()
{
    return std::all_of(m_sheet.merges.begin(), m_sheet.merges.end(), [this](const MergeData &merge) {
        return passes(worksheet_merge_range(m_worksheet, lxw_row_t(merge.rowFirst), lxw_col_t(merge.colFirst),
                                            lxw_row_t(merge.rowLast), lxw_col_t(merge.colLast), "", nullptr));
    });
}

bool XlsxSheet::writeRows()
{
    SheetRows rows(m_sheet);
    CellGrid::Row own;
    for (int row = rows.range().rowFirst; row < rows.range().rowEnd; ++row) {
        const CellGrid::Row &cells = rows.cells(row, own);
        if (!setRow(lxw_row_t(row), cells))
            return false;
        for (const Cell &cell : cells) {
            if (!writeCell(lxw_row_t(row), cell))
                return false;
        }
    }
    // Set before, the library would give it to each row as one of its own, which stays when the content changes.
    worksheet_set_default_row(m_worksheet, points(m_heights.defaultTwips()), LXW_FALSE);
    return true;
}

/// In points. That of the library where the file need not tell it: it is the sheet's default then.
double XlsxSheet::heightOf(int row, const CellGrid::Row &cells) const
{
    const auto data = m_sheet.rows.constFind(row);
    if (data != m_sheet.rows.constEnd() && data->height >= 0)
        return besideDefault(data->height, LXW_DEF_ROW_HEIGHT);
    const int twips = m_heights.neededTwips(row, cells);
    return twips > m_heights.defaultTwips() ? besideDefault(points(twips), LXW_DEF_ROW_HEIGHT) : LXW_DEF_ROW_HEIGHT;
}

bool XlsxSheet::setRow(lxw_row_t row, const CellGrid::Row &cells)
{
    const RowData data = m_sheet.rows.value(int(row));
    const double height = heightOf(int(row), cells);
    if (height == LXW_DEF_ROW_HEIGHT && data.format == 0 && !data.hidden)
        return true;
    lxw_row_col_options options = {};
    options.hidden = data.hidden;
    return passes(worksheet_set_row_opt(m_worksheet, row, height,
                                        data.format == 0 ? nullptr : m_formats.at(data.format), &options));
}

bool XlsxSheet::writeCell(lxw_row_t row, const Cell &cell)
{
    if (cell.text == Cell::isBlank)
        return writeBlank(row, cell);
    if (cell.text != Cell::isNumber)
        return writeText(row, cell);
    ++m_cellCount;
    return passes(worksheet_write_number(m_worksheet, row, cell.col, cell.number, m_formats.at(cell.format)));
}

bool XlsxSheet::writeBlank(lxw_row_t row, const Cell &cell)
{
    ++m_cellCount;
    return passes(worksheet_write_blank(m_worksheet, row, cell.col, m_formats.at(cell.format)));
}

/// An empty text is a blank in the library.
bool XlsxSheet::writeText(lxw_row_t row, const Cell &cell)
{
    ++m_cellCount;
    const QByteArray text = xlsxCellText(m_texts.text(cell.text));
    return passes(worksheet_write_string(m_worksheet, row, cell.col, text.constData(), m_formats.at(cell.format)));
}

} // namespace Spreadsheet
