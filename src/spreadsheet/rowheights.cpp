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
    return text.isWide ? qFromLittleEndian<quint16>(text.bytes + 2 * index) : text.bytes[index];
}

/// The width of a character in digits. The figures are those of the usual fonts of offices, rounded to what is
/// easily told.
double digitsOf(ushort unit)
{
    constexpr ushort firstWide = 0x1100; // East Asian; the halves of a surrogate pair make one wide character
    if (unit >= firstWide && !QChar::isSurrogate(unit))
        return 2;
    static const QString narrow = QStringLiteral(" .,:;'!|ijlftrIJ()[]-/íîïìĺľťŕ");
    static const QString broad = QStringLiteral("mwMW@%&");
    if (narrow.contains(QChar(unit)))
        return 0.5;
    if (broad.contains(QChar(unit)))
        return 1.6;
    return QChar::isUpper(uint(unit)) ? 1.25 : 1;
}

/// The lines of the characters from `begin` to before `end` in a column of so many digits; at least one. A text of no
/// more characters than that is taken to fit without a look at them.
int wrappedLines(const PackedText &text, int begin, int end, double digitsPerLine)
{
    // However narrow the column is, a line has a character.
    const double room = std::max(1.0, digitsPerLine);
    if (end - begin <= room)
        return 1;
    double digits = 0;
    for (int index = begin; index < end; ++index)
        digits += digitsOf(unitAt(text, index));
    return std::max(1, int(std::ceil(digits / room)));
}

/// The lines of a text in a column that holds so many digits of its font.
int wrappedLines(const PackedText &text, double digitsPerLine)
{
    if (!text.hasLineEnd)
        return wrappedLines(text, 0, text.size, digitsPerLine);
    int lines = 0;
    int begin = 0;
    for (int end = 0; end <= text.size; ++end) {
        if (end < text.size && unitAt(text, end) != '\n')
            continue;
        lines += wrappedLines(text, begin, end, digitsPerLine);
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
    const double width = cell.col < m_digits.size() ? m_digits[cell.col] : usualWidth;
    const int lines = wrappedLines(m_book.texts.packed(cell.text), width / m_lines[cell.format].digits);
    return lines > 1 && m_wide.contains(placeOf(row, cell.col)) ? 1 : lines;
}

} // namespace Spreadsheet
