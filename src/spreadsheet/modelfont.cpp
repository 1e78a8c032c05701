#include "spreadsheet/modelfont.h"

namespace Spreadsheet {

void ModelFont::setSize(int size)
{
    if (m_state.isFontSize(size))
        data().size = size;
}

void ModelFont::setBold(bool bold)
{
    data().bold = bold;
}

void ModelFont::setColor(Color color)
{
    if (m_state.isColor(color))
        data().color = color;
}

void ModelFont::setName(const QString &name)
{
    if (m_state.isFontName(name))
        data().name = name;
}

int ModelFont::indexIn(const BookState &state, const Font *font)
{
    if (!font)
        return 0;
    const auto *modelFont = static_cast<const ModelFont *>(font);
    if (&modelFont->m_state == &state)
        return modelFont->m_index;
    state.fail(QStringLiteral("The font is of another book"));
    return -1;
}

} // namespace Spreadsheet
