#include "spreadsheet/xlsxformats.h"

#include "spreadsheet/xlsxtext.h"

namespace Spreadsheet {

namespace {

/// For the library 0 is no colour, so black has a number of its own.
lxw_color_t lxwColor(Color color)
{
    const int rgb = isRgb(color) ? rgbOf(color) : paletteRgb(color);
    return rgb == 0 ? lxw_color_t(LXW_COLOR_BLACK) : lxw_color_t(rgb);
}

using SetStyle = void (*)(lxw_format *, uint8_t);
using SetColor = void (*)(lxw_format *, lxw_color_t);

void setSide(lxw_format *format, const SideData &side, SetStyle setStyle, SetColor setColor)
{
    if (side.style == BorderStyle::None)
        return;
    setStyle(format, uint8_t(side.style));
    if (side.color != colorAutomatic)
        setColor(format, lxwColor(side.color));
}

void setSides(lxw_format *format, const FormatData &data)
{
    setSide(format, data.left, format_set_left, format_set_left_color);
    setSide(format, data.right, format_set_right, format_set_right_color);
    setSide(format, data.top, format_set_top, format_set_top_color);
    setSide(format, data.bottom, format_set_bottom, format_set_bottom_color);
}

uint8_t alignment(AlignH align)
{
    switch (align) {
    case AlignH::Left:
        return LXW_ALIGN_LEFT;
    case AlignH::Center:
        return LXW_ALIGN_CENTER;
    case AlignH::Right:
        return LXW_ALIGN_RIGHT;
    case AlignH::General:
        break;
    }
    return LXW_ALIGN_NONE;
}

uint8_t alignment(AlignV align)
{
    switch (align) {
    case AlignV::Top:
        return LXW_ALIGN_VERTICAL_TOP;
    case AlignV::Center:
        return LXW_ALIGN_VERTICAL_CENTER;
    case AlignV::Bottom:
        break;
    }
    return LXW_ALIGN_VERTICAL_BOTTOM;
}

void setAlignment(lxw_format *format, const FormatData &data)
{
    format_set_align(format, alignment(data.alignH));
    format_set_align(format, alignment(data.alignV));
    if (data.wrap)
        format_set_text_wrap(format);
}

/// A name as the library takes it; false where it would cut it off.
bool shortName(const QString &name, QByteArray *result, QString *error)
{
    *result = xlsxName(name);
    if (result->size() < LXW_FORMAT_FIELD_LEN)
        return true;
    *error = QStringLiteral("a name of a font or number format is too long: \"%1\"").arg(name);
    return false;
}

} // namespace

XlsxFormats::XlsxFormats(lxw_workbook *workbook, const WorkbookData &book)
    : m_workbook(workbook)
    , m_book(book)
{
}

/// The first format of a workbook is that of cells without one; there is no function that gives it.
bool XlsxFormats::make(QString *error)
{
    lxw_format *const defaultLook = STAILQ_FIRST(m_workbook->formats);
    if (!setFont(defaultLook, m_book.fonts.first(), error))
        return false;
    m_formats.push_back(defaultLook);
    for (int index = 1; index < m_book.formats.size(); ++index) {
        lxw_format *const format = workbook_add_format(m_workbook);
        if (!format) {
            *error = QLatin1String(lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED));
            return false;
        }
        if (!fill(format, m_book.formats.at(index), error))
            return false;
        m_formats.push_back(format);
    }
    return true;
}

bool XlsxFormats::fill(lxw_format *format, const FormatData &data, QString *error) const
{
    if (!setFont(format, m_book.fonts.at(data.font), error) || !setNumFormat(format, data.numFormat, error))
        return false;
    setAlignment(format, data);
    setSides(format, data);
    if (data.fill == FillPattern::Solid) {
        format_set_pattern(format, LXW_PATTERN_SOLID);
        format_set_fg_color(format, lxwColor(data.foreground));
    }
    return true;
}

/// The library takes a format without a font's name of its own for its first one, which has another font by now.
bool XlsxFormats::setFont(lxw_format *format, const FontData &font, QString *error) const
{
    QByteArray name;
    if (!shortName(font.name, &name, error))
        return false;
    format_set_font_name(format, name.constData());
    format_set_font_size(format, font.size);
    if (font.bold)
        format_set_bold(format);
    if (font.color != colorAutomatic)
        format_set_font_color(format, lxwColor(font.color));
    return true;
}

bool XlsxFormats::setNumFormat(lxw_format *format, int numFormat, QString *error) const
{
    if (numFormat < firstCustomNumFormat)
        return true;
    QByteArray text;
    if (!shortName(m_book.numFormats.at(numFormat - firstCustomNumFormat), &text, error))
        return false;
    format_set_num_format(format, text.constData());
    return true;
}

} // namespace Spreadsheet
