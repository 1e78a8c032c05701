#pragma once

#include "spreadsheet/packedtext.h"

#include <QVector>

#include <memory>
#include <vector>

namespace Spreadsheet {

/// The different texts of a book, numbered in the order of their first use. They are kept packed, one behind the other:
/// a third of the memory that strings of their own take, and quick to write out.
class TextTable {
public:
    /// The number of a text of at most 65,535 characters, a new one for a new text.
    qint32 indexOf(const QString &text);
    int size() const { return m_texts.size(); }
    /// A text by its number.
    PackedText packed(qint32 number) const
    {
        const Entry &entry = m_texts.at(number);
        return {entry.bytes, entry.size, entry.isWide, entry.hasLineEnd};
    }
    QString text(qint32 number) const { return unpackText(packed(number)); }

private:
    struct Entry {
        const uchar *bytes;
        uint hash;
        quint16 size;
        bool isWide;
        bool hasLineEnd;
    };

    uchar *roomFor(int bytes);
    /// The place that a hash names, spread by Knuth's multiplicative hashing: the hashes of texts that differ in a
    /// digit only lie side by side.
    std::size_t firstPlace(uint hash) const { return (hash * 2654435769u) >> (32 - m_bits); }
    std::size_t nextPlace(std::size_t place) const { return (place + 1) & (m_tags.size() - 1); }
    static bool isSame(const Entry &entry, uint hash, const PackedText &text);
    void put(std::size_t place, qint32 number);
    void grow();

    // A text stands at the place that its hash names, or at the next free one; at most half of them are taken. A new
    // text is looked for among the tags alone: they stay in the processor's cache where whole hashes and numbers would
    // not.
    std::vector<quint8> m_tags; ///< 8 bits of the hash by place, 0 for a free place
    std::vector<qint32> m_numbers; ///< of the text by place
    int m_bits = 5; ///< the next table has one more
    QVector<Entry> m_texts; ///< by number
    std::vector<std::unique_ptr<uchar[]>> m_blocks; ///< where their characters stand
    uchar *m_free = nullptr; ///< in the last block
    int m_freeBytes = 0;
};

} // namespace Spreadsheet
