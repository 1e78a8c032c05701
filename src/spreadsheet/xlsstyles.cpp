#include "spreadsheet/xlsstyles.h"

#include "spreadsheet/units.h"

namespace Spreadsheet {

namespace {

constexpr int automaticLine = 64;
constexpr int automaticGround = 65;

/// There is no font 4 in the file: readers skip that number.
int fontNumber(int font)
{
    return font < 4 ? font : font + 1;
}

/// FONT
void writeFont(RecordStream &stream, const FontData &font, const XlsPalette &palette)
{
    constexpr int boldOption = 0x0001;
    constexpr int boldWeight = 700;
    constexpr int normalWeight = 400;
    constexpr int systemCharacterSet = 1;
    stream.begin(Biff::FONT)
        .u16(twips(font.size))
        .u16(font.bold ? boldOption : 0)
        .u16(palette.indexOf(font.color, colorAutomatic))
        .u16(font.bold ? boldWeight : normalWeight)
        .u16(0) // neither super- nor subscript
        .u8(0) // no underline
        .u8(0) // any family
        .u8(systemCharacterSet)
        .u8(0)
        .string8(font.name)
        .end();
}

/// FORMAT
void writeNumFormat(RecordStream &stream, int number, const QString &text)
{
    stream.begin(Biff::FORMAT).u16(number).string16(text).end();
}

/// The bits of a side's colour, which a side without a line does not have.
quint32 lineColor(const SideData &side, const XlsPalette &palette)
{
    return side.style == BorderStyle::None ? 0 : quint32(palette.indexOf(side.color, automaticLine));
}

quint32 lineStyles(const FormatData &format)
{
    return quint32(format.left.style) | quint32(format.right.style) << 4 | quint32(format.top.style) << 8
        | quint32(format.bottom.style) << 12;
}

quint8 alignment(const FormatData &format)
{
    constexpr int wrapBit = 0x08;
    return quint8(int(format.alignH) | (format.wrap ? wrapBit : 0) | int(format.alignV) << 4);
}

/// XF. `parent` is the style's number with the options of the record, and `own` the groups of attributes that are not
/// the style's.
void writeXf(RecordStream &stream, const FormatData &format, const XlsPalette &palette, int parent, int own)
{
    const bool solid = format.fill == FillPattern::Solid;
    const int ground = solid ? palette.indexOf(format.foreground, automaticLine) : automaticLine;
    stream.begin(Biff::XF)
        .u16(fontNumber(format.font))
        .u16(format.numFormat)
        .u16(parent)
        .u8(alignment(format))
        .u8(0) // not turned
        .u8(0) // neither indented nor shrunk
        .u8(own)
        .u32(lineStyles(format) | lineColor(format.left, palette) << 16 | lineColor(format.right, palette) << 23)
        .u32(lineColor(format.top, palette) | lineColor(format.bottom, palette) << 7 | quint32(solid) << 26)
        .u16(ground | automaticGround << 7)
        .end();
}

/// The XF records: first those of the 15 styles that a file must have, then one for each format.
void writeXfs(RecordStream &stream, const QVector<FormatData> &formats, const XlsPalette &palette)
{
    constexpr int styleParent = 0xfff5; // a style, locked, without a parent
    constexpr int cellParent = 0x0001; // a cell, locked, of style 0
    constexpr int styleOwn = 0xf4; // what the styles of outline levels take no part in
    constexpr int allOwn = 0xfc;
    for (int style = 0; style < xfOf(0); ++style)
        writeXf(stream, FormatData(), palette, styleParent, style == 0 ? 0 : styleOwn);
    for (int index = 0; index < formats.size(); ++index)
        writeXf(stream, formats.at(index), palette, cellParent, index == 0 ? 0 : allOwn);
}

/// STYLE: the built-in style "Normal" is the first XF.
void writeNormalStyle(RecordStream &stream)
{
    constexpr int builtIn = 0x8000;
    constexpr int normal = 0;
    constexpr int noLevel = 0xff;
    stream.begin(Biff::STYLE).u16(builtIn).u8(normal).u8(noLevel).end();
}

/// PALETTE
void writePalette(RecordStream &stream, const XlsPalette &palette)
{
    stream.begin(Biff::PALETTE).u16(XlsPalette::size);
    for (const int rgb : palette.colors())
        stream.u8(rgb >> 16).u8(rgb >> 8).u8(rgb).u8(0);
    stream.end();
}

} // namespace

void writeStyles(RecordStream &stream, const WorkbookData &book, const XlsPalette &palette)
{
    for (const FontData &font : book.fonts)
        writeFont(stream, font, palette);
    for (int index = 0; index < book.numFormats.size(); ++index)
        writeNumFormat(stream, firstCustomNumFormat + index, book.numFormats.at(index));
    writeXfs(stream, book.formats, palette);
    writeNormalStyle(stream);
    writePalette(stream, palette);
}

} // namespace Spreadsheet
