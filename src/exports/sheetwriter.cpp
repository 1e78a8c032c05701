#include "exports/sheetwriter.h"

namespace {

constexpr int longestText = 32767;

QString fittingText(const QString &text)
{
    if (text.size() <= longestText)
        return text;
    const bool splitsPair = text.at(longestText - 1).isHighSurrogate();
    return text.left(splitsPair ? longestText - 1 : longestText);
}

} // namespace

void SheetWriter::text(int row, int col, const QString &text, const Format *format)
{
    note(m_sheet.writeStr(row, col, fittingText(text), format));
}

void SheetWriter::number(int row, int col, double value, const Format *format)
{
    note(m_sheet.writeNum(row, col, value, format));
}

void SheetWriter::fill(int row, int colFirst, int colLast, const QString &text, const Format *format)
{
    for (int col = colFirst; col <= colLast; ++col)
        note(m_sheet.writeStr(row, col, text, format));
}

void SheetWriter::merge(int rowFirst, int rowLast, int colFirst, int colLast)
{
    if (rowFirst < rowLast || colFirst < colLast)
        note(m_sheet.setMerge(rowFirst, rowLast, colFirst, colLast));
}

void SheetWriter::setHeight(int row, double height)
{
    note(m_sheet.setRow(row, height));
}

void SheetWriter::setWidth(int colFirst, int colLast, double width)
{
    if (colFirst <= colLast)
        note(m_sheet.setCol(colFirst, colLast, width));
}

void SheetWriter::hideColumn(int col)
{
    note(m_sheet.setColHidden(col, true));
}

void SheetWriter::repeatRows(int rowFirst, int rowLast)
{
    note(m_sheet.setPrintRepeatRows(rowFirst, rowLast));
}

void SheetWriter::setPageFooter(const QString &footer)
{
    note(m_sheet.setFooter(footer));
}
