#include "spreadsheet/rowheights.h"

#include "spreadsheet/units.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

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

/// Widths of characters in tenths of a digit, by their UTF-16 units as far as the letters of Europe go. The figures are
/// those of the usual fonts of offices, rounded up: a row that is too high does no harm, one too low cuts its text.
using Widths = std::array<quint8, 0x180>;

Widths makeWidths()
{
    Widths widths;
    for (std::size_t unit = 0; unit < widths.size(); ++unit)
        widths[unit] = QChar::isUpper(uint(unit)) ? 12 : 10;
    for (const char16_t narrow : std::u16string_view(u" .,:;'!|ijlftrIJ()[]-/íîïìĺľťŕ"))
        widths[narrow] = 6;
    for (const char16_t broad : std::u16string_view(u"mwMW@%&"))
        widths[broad] = 15;
    return widths;
}

int tenthsOf(ushort unit)
{
    static const Widths widths = makeWidths();
    constexpr ushort firstWide = 0x1100; // East Asian; the halves of a surrogate pair make one wide character
    if (unit < widths.size())
        return widths[unit];
    return unit >= firstWide && !QChar::isSurrogate(unit) ? 20 : 10;
}

/// The lines of a text in a column of so many digits of its font, wrapped between its words; a word that is longer than
/// a line is broken. A text of no more characters than digits is taken to fit without a look at them.
int wrappedLines(const PackedText &text, double digitsPerLine)
{
    if (!text.hasLineEnd && text.size <= digitsPerLine)
        return 1;
    // However narrow the column is, a line has a character.
    const int room = int(10 * qBound(1.0, digitsPerLine, 1e6));
    int lines = 1;
    int used = 0; // of the present line
    int word = 0; // at its end
    for (int index = 0; index < text.size; ++index) {
        const ushort unit = unitAt(text, index);
        const int width = tenthsOf(unit);
        // Blanks may hang over the end.
        if (unit == '\n' || (unit != ' ' && used > 0 && used + width > room)) {
            ++lines;
            used = word = unit == '\n' || word + width > room ? 0 : word;
        }
        if (unit == '\n')
            continue;
        used += width;
        word = unit == ' ' ? 0 : word + width;
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
    for (const MergeData &merge : sheet.merges) {
        const quint64 place = placeOf(merge.rowFirst, merge.colFirst);
        if (merge.rowFirst == merge.rowLast)
            m_wide.insert(place, digitsOf(merge));
        else
            m_high.insert(place);
    }
}

double RowHeights::digitsAt(int col) const
{
    return std::size_t(col) < m_digits.size() ? m_digits[std::size_t(col)] : usualWidth;
}

/// The width of merged cells as far as they show.
double RowHeights::digitsOf(const MergeData &merge) const
{
    double digits = 0;
    for (int col = merge.colFirst; col <= merge.colLast; ++col) {
        const double width = digitsAt(col);
        digits += std::isfinite(width) ? width : 0;
    }
    return digits;
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
    const double width = digitsAt(cell.col);
    const double digits = m_lines[cell.format].digits;
    // Most texts are short: they are told without a division.
    if (!text.hasLineEnd && text.size * digits <= width)
        return 1;
    const int lines = wrappedLines(text, width / digits);
    const auto wide = m_wide.constFind(placeOf(row, cell.col));
    return lines == 1 || wide == m_wide.constEnd() ? lines : wrappedLines(text, *wide / digits);
}

} // namespace Spreadsheet
