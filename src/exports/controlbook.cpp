#include "exports/controlbook.h"

using namespace Spreadsheet;

namespace {

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

const Format *narrow(Book &book, const SheetLook &look)
{
    Font *font = book.addFont(look.labelFont);
    font->setSize(8);
    Format *copy = book.addFormat(look.header);
    copy->setFont(font);
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
    , narrowHeader(narrow(book, look))
    , legend(toTheLeft(book, look.footerTime, true))
    , m_numbers(book, withoutWrap(book, look.cell), look.cellFont, 10, false)
    , m_sums(book, withoutWrap(book, look.total), look.totalFont, 10, true)
{
    // No cell has it, on purpose: portions are whole, and the columns have no room for decimals.
    book.addCustomNumFormat(QStringLiteral("#.00"));
    // The table is wide: what stands at its right end would not be seen.
    look.footerTime = toTheLeft(book, look.footerTime, false);
}
