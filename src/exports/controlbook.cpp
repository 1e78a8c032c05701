#include "exports/controlbook.h"

using namespace Spreadsheet;

namespace {

/// Pixels of a screen of 96 dpi: a column of the days, the air beside a number in its cell, and the widest digit of a
/// font, as a part of its points.
constexpr double columnPixels = 15;
constexpr double airPixels = 3.5;
constexpr double digitPixelsOfPoint = 0.85;

SheetColors controlColors(const Book &book)
{
    return {book.colorPack(0, 173, 239), book.colorPack(250, 250, 250), book.colorPack(255, 255, 255),
            book.colorPack(192, 192, 192), book.colorPack(127, 127, 127)};
}

const Format *withoutWrap(Book &book, const Format *format)
{
    Format *copy = book.addFormat(format);
    copy->setWrap(false);
    return copy;
}

const Format *toTheLeft(Book &book, const Format *format, bool wrap)
{
    Format *copy = book.addFormat(format);
    copy->setAlignH(AlignH::Left);
    copy->setWrap(wrap);
    return copy;
}

} // namespace

ControlBook::ControlBook(Book &book)
    : look(book, controlColors(book), QStringLiteral("Cambria"))
    , narrowHeader(SheetLook::withFontSize(book, withoutWrap(book, look.header), look.labelFont, 8))
    , legend(toTheLeft(book, look.footerTime, true))
    , m_numbers(inAllSizes(book, withoutWrap(book, look.cell), look.cellFont))
    , m_sums(inAllSizes(book, withoutWrap(book, look.total), look.totalFont))
{
    // No cell has it, on purpose: portions are whole, and the columns have no room for decimals.
    book.addCustomNumFormat(QStringLiteral("#.00"));
    // The table is wide: what stands at its right end would not be seen.
    look.footerTime = toTheLeft(book, look.footerTime, false);
}

ControlBook::Sizes ControlBook::inAllSizes(Book &book, const Format *format, const Font *font)
{
    Sizes formats{};
    for (std::size_t size = leastSize; size <= greatestSize; ++size)
        formats[size] = SheetLook::withFontSize(book, format, font, int(size));
    return formats;
}

std::size_t ControlBook::fittingSize(qint64 value, int columns)
{
    int characters = value < 0 ? 2 : 1;
    for (qint64 rest = value / 10; rest != 0; rest /= 10)
        ++characters;
    const double room = columns * columnPixels - airPixels;
    return std::size_t(qBound(double(leastSize), room / (characters * digitPixelsOfPoint), double(greatestSize)));
}
