#include "spreadsheet/recordstream.h"

#include <algorithm>
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

RecordStream &RecordStream::units(const FileText &text, int first, int count)
{
    const ushort *from = text.units() + first;
    if (text.isWide()) {
        qToLittleEndian<quint16>(from, count, m_at);
        m_at += 2 * count;
    } else {
        uchar *to = m_at;
        for (int i = 0; i < count; ++i)
            to[i] = uchar(from[i]);
        m_at += count;
    }
    return *this;
}

RecordStream &RecordStream::string8(const QString &text)
{
    const FileText fileText(text);
    return u8(fileText.size()).u8(fileText.isWide()).units(fileText, 0, fileText.size());
}

RecordStream &RecordStream::string16(const QString &text)
{
    const FileText fileText(text);
    return u16(fileText.size()).u8(fileText.isWide()).units(fileText, 0, fileText.size());
}

void RecordStream::patch(quint32 position, quint32 value)
{
    if (position >= m_flushed)
        qToLittleEndian<quint32>(value, m_buffer.data() + (position - m_flushed));
    else
        m_patches.emplace_back(position, value);
}

bool RecordStream::finish(QString *error)
{
    flush();
    for (const auto &[position, value] : m_patches) {
        uchar bytes[sizeof value];
        qToLittleEndian<quint32>(value, bytes);
        m_container.seek(position);
        m_container.write(bytes, sizeof bytes);
    }
    m_container.seek(m_flushed);
    if (m_flushed <= std::numeric_limits<qint32>::max())
        return true;
    *error = QStringLiteral("The book is larger than an XLS file can be");
    return false;
}

} // namespace Spreadsheet
