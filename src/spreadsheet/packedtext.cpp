#include "spreadsheet/packedtext.h"

#include <QtEndian>

namespace Spreadsheet {

namespace {

/// What the characters of a text need. Looks at all of them, which is quicker than to look whether to stop.
struct Needs {
    uint bits; ///< all bits that any of them has
    bool lineEnd;
};

Needs needsOf(const ushort *units, int size)
{
    ushort bits = 0;
    ushort lineEnds = 0;
    for (int i = 0; i < size; ++i) {
        bits = ushort(bits | units[i]);
        lineEnds = ushort(lineEnds | ushort(units[i] == '\n'));
    }
    return {bits, lineEnds != 0};
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

void packNarrow(const ushort *units, int size, uchar *to)
{
    for (int i = 0; i < size; ++i)
        to[i] = uchar(units[i]);
}

void packWide(const ushort *units, int size, uchar *to, bool maybeSurrogates)
{
    qToLittleEndian<quint16>(units, size, to);
    if (!maybeSurrogates)
        return;
    for (int i = loneSurrogate(units, size, 0); i < size; i = loneSurrogate(units, size, i + 1))
        qToLittleEndian<quint16>(QChar::ReplacementCharacter, to + std::ptrdiff_t(2) * i);
}

} // namespace

PackedText packText(const QString &text, uchar *to)
{
    constexpr uint narrowest = 0xff;
    constexpr uint firstSurrogate = 0xd800;
    const auto *units = reinterpret_cast<const ushort *>(text.constData());
    const Needs needs = needsOf(units, text.size());
    const bool isWide = needs.bits > narrowest;
    if (isWide)
        packWide(units, text.size(), to, (needs.bits & firstSurrogate) == firstSurrogate);
    else
        packNarrow(units, text.size(), to);
    return {to, text.size(), isWide, needs.lineEnd};
}

QString unpackText(const PackedText &text)
{
    if (!text.isWide)
        return QString::fromLatin1(reinterpret_cast<const char *>(text.bytes), text.size);
    QString unpacked(text.size, Qt::Uninitialized);
    qFromLittleEndian<quint16>(text.bytes, text.size, unpacked.data());
    return unpacked;
}

} // namespace Spreadsheet
