#include "spreadsheet/filetext.h"

namespace Spreadsheet {

namespace {

bool isWideText(const ushort *units, int size)
{
    uint all = 0;
    for (int i = 0; i < size; ++i)
        all |= units[i];
    return all > 0xff;
}

/// The first surrogate at or after `from` without its other half, or `size`.
int loneSurrogate(const ushort *units, int size, int from)
{
    for (int i = from; i < size; ++i) {
        if (!QChar::isSurrogate(units[i]))
            continue;
        if (!QChar::isHighSurrogate(units[i]) || i + 1 == size || !QChar::isLowSurrogate(units[i + 1]))
            return i;
        ++i;
    }
    return size;
}

} // namespace

FileText::FileText(const QString &text)
    : m_units(text.utf16())
    , m_size(text.size())
    , m_wide(isWideText(m_units, m_size))
{
    int lone = m_wide ? loneSurrogate(m_units, m_size, 0) : m_size;
    if (lone == m_size)
        return;
    m_repaired = text;
    for (; lone < m_size; lone = loneSurrogate(m_units, m_size, lone + 1))
        m_repaired[lone] = QChar(QChar::ReplacementCharacter);
    m_units = m_repaired.utf16();
}

} // namespace Spreadsheet
