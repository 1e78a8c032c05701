#include "spreadsheet/rowheights.h"

#include "spreadsheet/units.h"

#include <QtEndian>

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

ushort unitAt(const PackedText &text, int index)
{
    return text.isWide ? qFromLittleEndian<quint16>(text.bytes + std::ptrdiff_t(2) * index) : text.bytes[index];
}

/// However narrow the column is, a line has a character.
int wrappedLines(int length, double charactersPerLine)
{
    return std::max(1, int(std::ceil(length / std::max(1.0, charactersPerLine))));
}

/// The lines of a text in a column that holds so many of its characters.
int wrappedLines(const PackedText &text, double charactersPerLine)
{
    if (!text.hasLineEnd)
        return wrappedLines(text.size, charactersPerLine);
    int lines = 0;
    int begin = 0;
    for (int end = 0; end <= text.size; ++end) {
        if (end < text.size && unitAt(text, end) != '\n')
            continue;
        lines += wrappedLines(end - begin, charactersPerLine);
        begin = end + 1;
    }
    return lines;
}

} // namespace

RowHeights::RowHeights(const WorkbookData &book, const SheetData &sheet)
    : m_book(book)
{
    const double defaultSize = book.fonts.first().size;
    for (const FormatData &format : book.formats) {
        const int size = book.fonts.at(format.font).size;
        m_lines.push_back({lineTwips(size), size / defaultSize, format.wrap});
    }
    for (auto column = sheet.columns.begin(); column != sheet.columns.end(); ++column)
        setDigits(column.key(), *column);
    for (const MergeData &merge : sheet.merges)
        (merge.rowFirst == merge.rowLast ? m_wide : m_high).insert(placeOf(merge.rowFirst, merge.colFirst));
}

/// A column that does not show has room for all.
void RowHeights::setDigits(int col, const ColumnData &column)
{
    m_digits.resize(std::size_t(col) + 1, usualWidth);
    if (column.hidden || column.width == 0)
        m_digits.back() = HUGE_VAL;
    else if (column.width > 0)
        m_digits.back() = column.width;
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
    const PackedText text = m_book.texts.packed(cell.text);
    const double width = cell.col < m_digits.size() ? m_digits[cell.col] : usualWidth;
    const double digits = m_lines[cell.format].digits;
    // Most texts are short: they are told without a division.
    if (!text.hasLineEnd && text.size * digits <= width)
        return 1;
    const int lines = wrappedLines(text, width / digits);
    return lines > 1 && m_wide.contains(placeOf(row, cell.col)) ? 1 : lines;
}

} // namespace Spreadsheet
