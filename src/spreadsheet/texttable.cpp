#include "spreadsheet/texttable.h"

#include <QHashFunctions>

#include <cstring>

namespace Spreadsheet {

namespace {

constexpr int prefixSize = 3;

PackedText packedAt(const uchar *at)
{
    quint16 size = 0;
    std::memcpy(&size, at, sizeof size);
    return {at + prefixSize, size, at[sizeof size] != 0};
}

/// Bits of a hash that are never all 0; those that the place is made of take part less.
quint16 tagOf(uint hash)
{
    return quint16(hash | 1);
}

void writePrefix(uchar *at, const PackedText &text)
{
    const auto size = quint16(text.size);
    std::memcpy(at, &size, sizeof size);
    at[sizeof size] = text.isWide;
}

} // namespace

PackedText TextTable::packed(qint32 number) const
{
    return packedAt(m_texts.at(number));
}

uchar *TextTable::roomFor(int bytes)
{
    constexpr int blockSize = 1 << 18; // room for the longest text
    if (bytes > m_freeBytes) {
        m_blocks.emplace_back(new uchar[blockSize]);
        m_free = m_blocks.back().get();
        m_freeBytes = blockSize;
    }
    return m_free;
}

bool TextTable::isAt(std::size_t place, const uchar *prefixed, std::size_t bytes) const
{
    const uchar *known = m_texts.at(m_numbers[place]);
    // Equal prefixes mean equal sizes.
    return std::memcmp(known, prefixed, prefixSize) == 0 && std::memcmp(known, prefixed, bytes) == 0;
}

qint32 TextTable::indexOf(const QString &text)
{
    if (std::size_t(size()) * 2 >= m_tags.size())
        grow();
    const uint hash = qHash(text);
    // Packed where it stays if it is new.
    uchar *at = roomFor(prefixSize + 2 * text.size());
    const PackedText packed = packText(text, at + prefixSize);
    writePrefix(at, packed);
    const auto bytes = std::size_t(prefixSize + packed.byteCount());
    const quint16 tag = tagOf(hash);
    std::size_t place = firstPlace(hash);
    for (; m_tags[place] != 0; place = nextPlace(place)) {
        if (m_tags[place] == tag && isAt(place, at, bytes))
            return m_numbers[place];
    }
    m_hashes.append(hash);
    m_texts.append(at);
    put(place, size() - 1);
    m_free += bytes;
    m_freeBytes -= int(bytes);
    return size() - 1;
}

void TextTable::put(std::size_t place, qint32 number)
{
    m_tags[place] = tagOf(m_hashes.at(number));
    m_numbers[place] = number;
}

void TextTable::grow()
{
    ++m_bits;
    m_tags.assign(std::size_t(1) << m_bits, 0);
    m_numbers.assign(m_tags.size(), 0);
    for (qint32 number = 0; number < size(); ++number) {
        std::size_t place = firstPlace(m_hashes.at(number));
        while (m_tags[place] != 0)
            place = nextPlace(place);
        put(place, number);
    }
}

} // namespace Spreadsheet
