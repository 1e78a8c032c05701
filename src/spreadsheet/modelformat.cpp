#include "spreadsheet/modelformat.h"

#include "spreadsheet/modelfont.h"

#include <array>

namespace Spreadsheet {

namespace {

std::array<SideData *, 4> sidesOf(FormatData &format)
{
    return {&format.left, &format.right, &format.top, &format.bottom};
}

} // namespace

void ModelFormat::setFont(const Font *font)
{
    const int index = ModelFont::indexIn(m_state, font);
    if (index >= 0)
        data().font = index;
}

void ModelFormat::setNumFormat(int numFormat)
{
    const int end = firstCustomNumFormat + m_state.data.numFormats.size();
    if (numFormat == generalNumFormat || (numFormat >= firstCustomNumFormat && numFormat < end))
        data().numFormat = numFormat;
    else
        m_state.fail(QStringLiteral("There is no number format %1").arg(numFormat));
}

void ModelFormat::setAlignH(AlignH align)
{
    data().alignH = align;
}

void ModelFormat::setAlignV(AlignV align)
{
    data().alignV = align;
}

void ModelFormat::setWrap(bool wrap)
{
    data().wrap = wrap;
}

void ModelFormat::setBorder(BorderStyle style)
{
    for (SideData *side : sidesOf(data()))
        side->style = style;
}

void ModelFormat::setBorderColor(Color color)
{
    if (!m_state.isColor(color))
        return;
    for (SideData *side : sidesOf(data()))
        side->color = color;
}

void ModelFormat::setBorderTop(BorderStyle style)
{
    data().top.style = style;
}

void ModelFormat::setBorderBottom(BorderStyle style)
{
    data().bottom.style = style;
}

void ModelFormat::setBorderTopColor(Color color)
{
    if (m_state.isColor(color))
        data().top.color = color;
}

void ModelFormat::setBorderBottomColor(Color color)
{
    if (m_state.isColor(color))
        data().bottom.color = color;
}

void ModelFormat::setFillPattern(FillPattern pattern)
{
    data().fill = pattern;
}

void ModelFormat::setPatternForegroundColor(Color color)
{
    if (m_state.isColor(color))
        data().foreground = color;
}

int ModelFormat::failForeign(const BookState &state)
{
    state.fail(QStringLiteral("The format is of another book"));
    return -1;
}

} // namespace Spreadsheet
