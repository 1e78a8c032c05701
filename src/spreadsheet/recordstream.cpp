#include "spreadsheet/recordstream.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace Spreadsheet {

RecordStream::RecordStream(OleContainer &container)
    : m_container(container)
    , m_buffer(bufferSize)
    , m_flushAt(m_buffer.data() + bufferSize - headerSize - maxContent)
    , m_at(m_buffer.data())
    , m_record(m_buffer.data())
{
}

void RecordStream::flush()
{
    const qint64 size = m_at - m_buffer.data();
    m_container.write(m_buffer.data(), size);
    m_flushed += size;
    m_at = m_buffer.data();
    m_record = m_at;
}

RecordStream &RecordStream::fill(int value, int count)
{
    m_at = std::fill_n(m_at, count, uchar(value));
    return *this;
}

void RecordStream::optionAndUnits(const QString &text)
{
    const PackedText packed = packText(text, m_at + 1);
    *m_at = packed.isWide;
    m_at += 1 + packed.byteCount();
}

RecordStream &RecordStream::string8(const QString &text)
{
    u8(text.size()).optionAndUnits(text);
    return *this;
}

RecordStream &RecordStream::string16(const QString &text)
{
    u16(text.size()).optionAndUnits(text);
    return *this;
}

void RecordStream::patch(quint32 position, quint32 value)
{
    if (position >= m_flushed) {
        qToLittleEndian<quint32>(value, m_buffer.data() + (position - m_flushed));
        return;
    }
    char bytes[sizeof value];
    qToLittleEndian<quint32>(value, bytes);
    // Places of one record come one after the other and are written in one go.
    auto before = m_patches.lowerBound(position);
    if (before != m_patches.begin() && std::prev(before).key() + quint32(std::prev(before)->size()) == position)
        std::prev(before)->append(bytes, sizeof bytes);
    else
        m_patches.insert(position, QByteArray(bytes, sizeof bytes));
}

bool RecordStream::finish(QString *error)
{
    flush();
    for (auto patch = m_patches.begin(); patch != m_patches.end(); ++patch) {
        m_container.seek(patch.key());
        m_container.write(reinterpret_cast<const uchar *>(patch->constData()), patch->size());
    }
    m_container.seek(m_flushed);
    if (m_flushed <= std::numeric_limits<qint32>::max())
        return true;
    *error = QStringLiteral("The book is larger than an XLS file can be");
    return false;
}

} // namespace Spreadsheet
