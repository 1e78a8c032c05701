#pragma once

#include "spreadsheet/biff.h"
#include "spreadsheet/olecontainer.h"
#include "spreadsheet/packedtext.h"

#include <QMap>
#include <QtEndian>

#include <cstring>
#include <vector>

namespace Spreadsheet {

/// The stream of a workbook, record by record: `begin`, the fields one after the other, `end`. Numbers are written
/// little-endian, whatever the machine is.
class RecordStream {
public:
    /// The most bytes that a record may hold; longer content goes on in CONTINUE records.
    static constexpr int maxContent = 8224;

    /// The container outlives the stream.
    explicit RecordStream(OleContainer &container);

    RecordStream &begin(Biff::Record type)
    {
        if (m_at > m_flushAt)
            flush();
        m_record = m_at;
        m_at += headerSize;
        qToLittleEndian<quint16>(type, m_record);
        return *this;
    }
    /// Makes the present record one of another type.
    RecordStream &retype(Biff::Record type)
    {
        qToLittleEndian<quint16>(type, m_record);
        return *this;
    }
    void end()
    {
        Q_ASSERT(contentSize() <= maxContent);
        qToLittleEndian<quint16>(quint16(contentSize()), m_record + sizeof(quint16));
    }

    RecordStream &u8(int value)
    {
        *m_at++ = uchar(value);
        return *this;
    }
    RecordStream &u16(int value) { return number(quint16(value)); }
    RecordStream &u32(quint32 value) { return number(value); }
    /// A number as IEEE 754 has it in 64 bits.
    RecordStream &f64(double value)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        return number(bits);
    }
    /// So many bytes of one value.
    RecordStream &fill(int value, int count);
    /// Characters of a text, 8 or 16 bits each; the lengths and the option byte are other fields.
    RecordStream &units(const PackedText &text, int first, int count)
    {
        const auto bytes = std::size_t(count) * std::size_t(text.bytesPerUnit());
        std::memcpy(m_at, text.bytes + std::ptrdiff_t(first) * text.bytesPerUnit(), bytes);
        m_at += bytes;
        return *this;
    }
    /// A whole string with its length in 8 bits, or in 16 bits, and the option byte.
    RecordStream &string8(const QString &text);
    RecordStream &string16(const QString &text);

    /// How many bytes the present record can still take.
    int room() const { return maxContent - contentSize(); }
    /// Where in the stream the next byte stands.
    quint32 position() const { return quint32(m_flushed + (m_at - m_buffer.data())); }
    /// Where in the stream the present record begins.
    quint32 recordPosition() const { return position() - quint32(m_at - m_record); }
    /// Where in the present record, its header of 4 bytes included, the next byte stands.
    int positionInRecord() const { return int(m_at - m_record); }

    /// Writes over four bytes of a record that has ended.
    void patch(quint32 position, quint32 value);
    /// Sends what is still to be sent. False with the reason in `error` when the stream is longer than a file can be.
    bool finish(QString *error);

private:
    static constexpr int headerSize = 4;
    static constexpr int bufferSize = 1 << 18;

    template<typename Number> RecordStream &number(Number value)
    {
        qToLittleEndian<Number>(value, m_at);
        m_at += sizeof value;
        return *this;
    }
    /// The option byte of a string and its characters.
    void optionAndUnits(const QString &text);
    int contentSize() const { return int(m_at - m_record) - headerSize; }
    void flush();

    OleContainer &m_container;
    std::vector<uchar> m_buffer;
    uchar *const m_flushAt; ///< beyond it a whole record may find no room
    uchar *m_at;
    uchar *m_record;
    qint64 m_flushed = 0; ///< bytes sent so far
    QMap<quint32, QByteArray> m_patches; ///< those of bytes that are sent, by position
};

} // namespace Spreadsheet
