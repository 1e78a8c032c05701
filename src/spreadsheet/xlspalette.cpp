#include "spreadsheet/xlspalette.h"

namespace Spreadsheet {

namespace {

constexpr int firstIndex = 8;

int rgbOfAny(Color color)
{
    return isRgb(color) ? rgbOf(color) : paletteRgb(color);
}

} // namespace

void XlsPalette::add(Color color)
{
    if (color != colorAutomatic)
        m_indexes.insert(rgbOfAny(color), 0);
}

bool XlsPalette::choose(const WorkbookData &book, QString *error)
{
    for (const FontData &font : book.fonts)
        add(font.color);
    for (const FormatData &format : book.formats) {
        for (const SideData &side : {format.left, format.right, format.top, format.bottom}) {
            if (side.style != BorderStyle::None)
                add(side.color);
        }
        if (format.fill == FillPattern::Solid)
            add(format.foreground);
    }
    if (m_indexes.size() > size) {
        *error =
            QStringLiteral("The book has %1 different colours; an XLS file holds %2").arg(m_indexes.size()).arg(size);
        return false;
    }
    QVector<int> left;
    for (int index = 0; index < size; ++index) {
        m_colors[std::size_t(index)] = paletteRgb(firstIndex + index);
        const auto standard = m_indexes.find(paletteRgb(firstIndex + index));
        if (standard != m_indexes.end() && *standard == 0)
            *standard = firstIndex + index;
        else
            left.append(index);
    }
    for (auto color = m_indexes.begin(); color != m_indexes.end(); ++color) {
        if (*color == 0) {
            const int index = left.takeLast();
            *color = firstIndex + index;
            m_colors[std::size_t(index)] = color.key();
        }
    }
    return true;
}

int XlsPalette::indexOf(Color color, int automatic) const
{
    return color == colorAutomatic ? automatic : m_indexes.value(rgbOfAny(color));
}

} // namespace Spreadsheet
