#include "spreadsheet/texttable.h"

#include <QHashFunctions>

#include <cstring>

namespace Spreadsheet {

namespace {

/// Bits of a hash that are never all 0; those that the place is made of take part less.
quint8 tagOf(uint hash)
{
    return quint8(hash | 1);
}

} // namespace

uchar *TextTable::roomFor(int bytes)
{
    constexpr int blockSize = 1 << 18; // room for the longest text
    if (!m_free || bytes > m_freeBytes) {
        m_blocks.emplace_back(new uchar[blockSize]);
        m_free = m_blocks.back().get();
        m_freeBytes = blockSize;
    }
    return m_free;
}

bool TextTable::isSame(const Entry &entry, uint hash, const PackedText &text)
{
    return entry.hash == hash && entry.size == text.size && entry.isWide == text.isWide
        && std::memcmp(entry.bytes, text.bytes, std::size_t(text.byteCount())) == 0;
}

qint32 TextTable::indexOf(const QString &text)
{
    if (std::size_t(size()) * 8 >= m_tags.size() * 7)
        grow();
    const uint hash = qHash(text);
    const quint8 tag = tagOf(hash);
    std::size_t place = firstPlace(hash);
    __builtin_prefetch(&m_tags[place]); // on its way while the text is packed
    // Packed where it stays if it is new.
    const PackedText packed = packText(text, roomFor(2 * text.size()));
    for (; m_tags[place] != 0; place = nextPlace(place)) {
        if (m_tags[place] == tag && isSame(m_texts.at(m_numbers[place]), hash, packed))
            return m_numbers[place];
    }
    m_texts.append({packed.bytes, hash, quint16(packed.size), packed.isWide, packed.hasLineEnd});
    put(place, size() - 1);
    m_free += packed.byteCount();
    m_freeBytes -= packed.byteCount();
    return size() - 1;
}

void TextTable::put(std::size_t place, qint32 number)
{
    m_tags[place] = tagOf(m_texts.at(number).hash);
    m_numbers[place] = number;
}

void TextTable::grow()
{
    ++m_bits;
    m_tags.assign(std::size_t(1) << m_bits, 0);
    m_numbers.assign(m_tags.size(), 0);
    for (qint32 number = 0; number < size(); ++number) {
        std::size_t place = firstPlace(m_texts.at(number).hash);
        while (m_tags[place] != 0)
            place = nextPlace(place);
        put(place, number);
    }
}

} // namespace Spreadsheet
