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

void writePrefix(uchar *at, const PackedText &text)
{
    const auto size = quint16(text.size);
    std::memcpy(at, &size, sizeof size);
    at[sizeof size] = text.isWide;
}

} // namespace

PackedText TextTable::packed(qint32 number) const
{
    return packedAt(m_texts[std::size_t(number)]);
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

qint32 TextTable::indexOf(const QString &text)
{
    if (m_texts.size() * 2 >= m_places.size())
        grow();
    // Packed where it stays if it is new.
    uchar *at = roomFor(prefixSize + 2 * text.size());
    const PackedText packed = packText(text, at + prefixSize);
    writePrefix(at, packed);
    const auto bytes = std::size_t(prefixSize + packed.byteCount());
    const uint hash = qHashBits(at, bytes);
    std::size_t place = firstPlace(hash);
    for (; m_places[place].text >= 0; place = nextPlace(place)) {
        const Place &known = m_places[place];
        // Equal prefixes mean equal sizes.
        if (known.hash == hash && std::memcmp(m_texts[std::size_t(known.text)], at, prefixSize) == 0
            && std::memcmp(m_texts[std::size_t(known.text)], at, bytes) == 0)
            return known.text;
    }
    m_places[place] = {hash, size()};
    m_texts.push_back(at);
    m_free += bytes;
    m_freeBytes -= int(bytes);
    return size() - 1;
}

void TextTable::grow()
{
    const std::vector<Place> old = std::move(m_places);
    ++m_bits;
    m_places.assign(std::size_t(1) << m_bits, Place());
    for (const Place &place : old) {
        if (place.text < 0)
            continue;
        std::size_t to = firstPlace(place.hash);
        while (m_places[to].text >= 0)
            to = nextPlace(to);
        m_places[to] = place;
    }
}

} // namespace Spreadsheet
