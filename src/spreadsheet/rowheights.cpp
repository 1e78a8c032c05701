#include "spreadsheet/rowheights.h"

#include "spreadsheet/units.h"

#include <algorithm>
#include <cmath>

namespace Spreadsheet {

namespace {

/// A column of which no width is known, in digits.
constexpr double usualWidth = 8.43;

quint64 placeOf(int row, int col)
{
    return quint64(row) << 16U | quint64(col);
}

/// The lines of a text in a column that holds so many of its characters.
int wrappedLines(const QString &text, double charactersPerLine)
{
    int lines = 0;
    for (int begin = 0, end = 0; end >= 0; begin = end + 1) {
        end = text.indexOf(QLatin1Char('\n'), begin);
        const int length = (end < 0 ? text.size() : end) - begin;
        lines += std::max(1, int(std::ceil(length / charactersPerLine)));
    }
    return lines;
}

} // namespace

RowHeights::RowHeights(const WorkbookData &book, const SheetData &sheet)
    : m_book(book)
    , m_sheet(sheet)
{
    const double defaultSize = book.fonts.first().size;
    for (const FormatData &format : book.formats) {
        const int size = book.fonts.at(format.font).size;
        m_lines.push_back({lineTwips(size), size / defaultSize, format.wrap});
    }
    for (const MergeData &merge : sheet.merges)
        (merge.rowFirst == merge.rowLast ? m_wide : m_high).insert(placeOf(merge.rowFirst, merge.colFirst));
}

int RowHeights::neededTwips(int row, const CellGrid::Row &cells) const
{
    int needed = defaultTwips();
    for (const Cell &cell : cells) {
        if (cell.text == Cell::isBlank)
            continue;
        const Line &line = m_lines[cell.format];
        const int twips = line.wraps && cell.text >= 0 ? line.twips * lineCount(row, cell) : line.twips;
        if (twips > needed && !m_high.contains(placeOf(row, cell.col)))
            needed = twips;
    }
    constexpr int highest = 409 * 20;
    return std::min(needed, highest);
}

int RowHeights::lineCount(int row, const Cell &cell) const
{
    const auto column = m_sheet.columns.constFind(cell.col);
    const bool isSet = column != m_sheet.columns.constEnd();
    const double width = isSet && column->width >= 0 ? column->width : usualWidth;
    if ((isSet && column->hidden) || width <= 0 || m_wide.contains(placeOf(row, cell.col)))
        return 1;
    return wrappedLines(m_book.texts.text(cell.text), width / m_lines[cell.format].digits);
}

} // namespace Spreadsheet
