#pragma once

#include "spreadsheet/packedtext.h"

#include <memory>
#include <vector>

namespace Spreadsheet {

/// The different texts of a book, numbered in the order of their first use. They are kept packed, one behind the other:
/// a third of the memory that strings of their own take, and quick to write out.
class TextTable {
public:
    /// The number of a text of at most 65,535 characters, a new one for a new text.
    qint32 indexOf(const QString &text);
    int size() const { return int(m_texts.size()); }
    /// A text by its number.
    PackedText packed(qint32 number) const;
    QString text(qint32 number) const { return unpackText(packed(number)); }

private:
    struct Place {
        uint hash = 0;
        qint32 text = -1; ///< number of the text, -1 for a free place
    };

    uchar *roomFor(int bytes);
    /// The place that a hash names, spread by Knuth's multiplicative hashing: the hashes of texts that differ in a
    /// digit only lie side by side.
    std::size_t firstPlace(uint hash) const { return (hash * 2654435769u) >> (32 - m_bits); }
    std::size_t nextPlace(std::size_t place) const { return (place + 1) & (m_places.size() - 1); }
    void grow();

    /// A text stands at the place that its hash names, or at the next free one; at most half of them are taken.
    std::vector<Place> m_places;
    int m_bits = 5; ///< the next table has one more
    /// Each text: its size in 16 bits of the machine, whether it is wide in 8, and its characters.
    std::vector<const uchar *> m_texts;
    std::vector<std::unique_ptr<uchar[]>> m_blocks; ///< where they stand
    uchar *m_free = nullptr; ///< in the last block
    int m_freeBytes = 0;
};

} // namespace Spreadsheet
