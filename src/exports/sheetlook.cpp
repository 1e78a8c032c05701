#include "exports/sheetlook.h"

#include "exports/sheetsetup.h"

using namespace Spreadsheet;

namespace {

Font *makeFont(Book &book, const Font *like, int size, bool bold, Color color)
{
    Font *font = book.addFont(like);
    font->setSize(size);
    font->setBold(bold);
    font->setColor(color);
    return font;
}

/// A copy of `like`, or a plain format, centred from top to bottom.
Format *makeFormat(Book &book, const Format *like, const Font *font, AlignH align)
{
    Format *format = book.addFormat(like);
    format->setFont(font);
    format->setAlignH(align);
    format->setAlignV(AlignV::Center);
    return format;
}

void setFill(Format *format, Color color)
{
    format->setFillPattern(FillPattern::Solid);
    format->setPatternForegroundColor(color);
}

void setThinBorder(Format *format, Color color)
{
    format->setBorder(BorderStyle::Thin);
    format->setBorderColor(color);
}

const Format *makeSpacer(Book &book, const SheetColors &colors)
{
    Format *format = book.addFormat();
    format->setBorderTop(BorderStyle::Thick);
    format->setBorderTopColor(colors.accent);
    format->setBorderBottom(BorderStyle::Thin);
    format->setBorderBottomColor(colors.pale);
    return format;
}

} // namespace

SheetLook::SheetLook(Book &book, const SheetColors &sheetColors, const QString &headingFont)
    : colors(sheetColors)
{
    makeHeadings(book, headingFont);
    makeCells(book);
    makeFooter(book);
}

void SheetLook::makeHeadings(Book &book, const QString &headingFont)
{
    const QString name = headingFont.isEmpty() ? QLatin1String(defaultSheetFont) : headingFont;
    Font *titleFont = makeFont(book, nullptr, 15, true, colors.white);
    titleFont->setName(name);
    Font *white = makeFont(book, nullptr, 11, true, colors.white);
    white->setName(name);
    labelFont = white;

    Format *titleFormat = makeFormat(book, nullptr, titleFont, AlignH::Left);
    titleFormat->setWrap(true);
    setFill(titleFormat, colors.accent);
    title = titleFormat;
    // Size 11, so that a label fits into a column of 10 digits.
    caption = makeFormat(book, nullptr, makeFont(book, titleFont, 11, true, colorAutomatic), AlignH::Left);
    branch = makeFormat(book, nullptr, makeFont(book, titleFont, 15, true, colors.accent), AlignH::Left);
    // The letters of the title are too high for the row of the headings.
    Format *headerFormat = makeFormat(book, title, labelFont, AlignH::Center);
    setThinBorder(headerFormat, colors.white);
    header = headerFormat;
    headerRight = makeFormat(book, header, labelFont, AlignH::Right);
    spacer = makeSpacer(book, colors);
}

void SheetLook::makeCells(Book &book)
{
    Font *plain = makeFont(book, nullptr, 10, false, colorAutomatic);
    plain->setName(QLatin1String(defaultSheetFont));
    cellFont = plain;
    totalFont = makeFont(book, nullptr, 11, true, colorAutomatic);

    Format *centred = makeFormat(book, nullptr, cellFont, AlignH::Center);
    setThinBorder(centred, colors.line);
    centred->setWrap(true);
    cell = centred;
    cellLeft = makeFormat(book, cell, cellFont, AlignH::Left);
    cellRight = makeFormat(book, cell, cellFont, AlignH::Right);
    Format *sum = makeFormat(book, cell, totalFont, AlignH::Center);
    setFill(sum, colors.pale);
    total = sum;
    totalLeft = makeFormat(book, total, totalFont, AlignH::Left);
    totalRight = makeFormat(book, total, totalFont, AlignH::Right);
}

void SheetLook::makeFooter(Book &book)
{
    footer = makeFormat(book, nullptr, makeFont(book, nullptr, 12, false, colorAutomatic), AlignH::Left);
    footerTime = makeFormat(book, nullptr, makeFont(book, nullptr, 9, false, colors.faint), AlignH::Right);
}

const Format *SheetLook::withNumFormat(Book &book, const Format *format, int numFormat)
{
    Format *copy = book.addFormat(format);
    copy->setNumFormat(numFormat);
    return copy;
}
