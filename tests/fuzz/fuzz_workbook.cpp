// Any bytes as operations on a book of either kind: refused or done without a crash, and a number is read as it was
// written. What comes of it as XLS has the structure of such a file: records of lawful lengths, substreams that begin
// and end, sheets where the book says, as many shared strings as it says, each whole.
#include "spreadsheet/modelbook.h"
#include "spreadsheet/writers.h"

#include <QBuffer>
#include <QtEndian>

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-utils.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace Spreadsheet;

namespace {

void require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz_workbook: %s\n", what);
    std::abort();
}

/// The bytes as a source of arguments; zeros when they are used up.
class Source {
public:
    Source(const std::uint8_t *data, std::size_t size)
        : m_at(data)
        , m_end(data + size)
    {
    }

    bool atEnd() const { return m_at == m_end; }
    int byte() { return atEnd() ? 0 : *m_at++; }
    int word() { return byte() << 8 | byte(); }
    /// Mostly small, at times at and beyond the limits.
    int index(int limit)
    {
        const int kind = byte();
        return kind < 240 ? kind % 40 : limit - 2 + kind % 4;
    }
    double number()
    {
        switch (byte() % 5) {
        case 0:
            return byte();
        case 1:
            return word() / 100.0;
        case 2:
            return -word();
        case 3:
            return word() / 7.0;
        default:
            break;
        }
        quint64 bits = 0;
        for (int i = 0; i < 8; ++i)
            bits = bits << 8 | quint64(byte());
        double value = 0;
        static_assert(sizeof value == sizeof bits);
        memcpy(&value, &bits, sizeof value);
        return value;
    }
    /// Any code units, short or so long that records break.
    QString text()
    {
        const int kind = byte();
        const int length = kind < 200 ? kind % 20 : word();
        QString text(length, QChar(kind % 2 ? 'x' : 0x10d));
        for (int i = 0; i < std::min(length, 8); ++i)
            text[i] = QChar(ushort(kind % 3 ? byte() : word()));
        return text;
    }
    Color color() { return byte() % 3 ? 8 + byte() % 56 : 0x1000000 | word(); }

private:
    const std::uint8_t *m_at;
    const std::uint8_t *const m_end;
};

/// A book and what was made in it, to take one of.
class Play {
public:
    Play(const std::uint8_t *data, std::size_t size)
        : m_source(data, size)
        , m_isXls(m_source.byte() % 2 == 0)
        , m_model(new ModelBook(m_isXls ? xlsKind : xlsxKind))
        , m_book(m_model)
    {
        m_book->setRgbMode(true);
        m_sheets.append(m_book->addSheet(QStringLiteral("first")));
        while (!m_source.atEnd())
            step();
    }

    const WorkbookData &data() const { return m_model->data(); }

private:
    int row() { return m_source.index(m_isXls ? xlsLimits.rows : 70000); }
    int col() { return m_source.index(m_isXls ? xlsLimits.columns : 300); }
    Sheet *sheet() { return m_sheets.at(m_source.byte() % m_sheets.size()); }
    const Format *format() { return m_formats.isEmpty() ? nullptr : m_formats.at(m_source.byte() % m_formats.size()); }

    void step()
    {
        switch (m_source.byte() % 16) {
        case 0:
            addSheet();
            break;
        case 1:
            addFont();
            break;
        case 2:
            addFormat();
            break;
        case 3:
            m_book->addCustomNumFormat(m_source.text());
            break;
        case 4:
            sheet()->setMerge(row(), row(), col(), col());
            break;
        case 5:
            sheet()->setCol(col(), col(), m_source.number(), format(), m_source.byte() % 2);
            break;
        case 6:
            sheet()->setRow(row(), m_source.number(), format(), m_source.byte() % 2);
            break;
        case 7:
            sheet()->setColHidden(col(), m_source.byte() % 2);
            break;
        case 8:
            setUpPage(*sheet());
            break;
        case 9:
            m_book->setDefaultFont(m_source.text(), m_source.byte());
            break;
        case 10:
        case 11:
        case 12:
            writeNumber();
            break;
        default:
            sheet()->writeStr(row(), col(), m_source.text(), format());
        }
    }

    void writeNumber()
    {
        Sheet *target = sheet();
        const int atRow = row();
        const int atCol = col();
        const double value = m_source.number();
        if (target->writeNum(atRow, atCol, value, format()))
            require(target->readNum(atRow, atCol) == value, "a number is not read as it was written");
        else
            require(!m_book->errorMessage().isEmpty(), "a failure without a reason");
    }

    void addSheet()
    {
        constexpr int most = 5;
        Sheet *added = m_sheets.size() < most ? m_book->addSheet(m_source.text()) : nullptr;
        if (added)
            m_sheets.append(added);
    }

    void addFont()
    {
        Font *font = m_book->addFont(m_fonts.isEmpty() ? nullptr : m_fonts.last());
        if (!font)
            return;
        font->setSize(m_source.byte() * 2);
        font->setBold(m_source.byte() % 2);
        font->setColor(m_source.color());
        font->setName(m_source.text());
        m_fonts.append(font);
    }

    void addFormat()
    {
        Format *added = m_book->addFormat(format());
        if (!added)
            return;
        added->setFont(m_fonts.isEmpty() ? nullptr : m_fonts.at(m_source.byte() % m_fonts.size()));
        added->setNumFormat(firstCustomNumFormat + m_source.byte() % 4);
        added->setAlignH(AlignH(m_source.byte() % 4));
        added->setAlignV(AlignV(m_source.byte() % 3));
        added->setWrap(m_source.byte() % 2);
        added->setBorder(BorderStyle(m_source.byte() % 8));
        added->setBorderColor(m_source.color());
        added->setBorderTop(BorderStyle(m_source.byte() % 8));
        added->setBorderTopColor(m_source.color());
        added->setFillPattern(m_source.byte() % 2 ? FillPattern::Solid : FillPattern::None);
        added->setPatternForegroundColor(m_source.color());
        m_formats.append(added);
    }

    void setUpPage(Sheet &target)
    {
        target.setMarginLeft(m_source.number());
        target.setMarginBottom(m_source.number());
        target.setPrintFit(m_source.byte() - 1, m_source.byte());
        target.setPrintRepeatRows(row(), row());
        target.setFooter(m_source.text());
        target.setLandscape(m_source.byte() % 2);
        target.setDisplayGridlines(m_source.byte() % 2);
    }

    Source m_source;
    const bool m_isXls;
    ModelBook *const m_model;
    const BookPointer m_book;
    QVector<Sheet *> m_sheets;
    QVector<Font *> m_fonts;
    QVector<Format *> m_formats;
};

/// The stream "Workbook" of an XLS file.
QByteArray streamOf(const QByteArray &file)
{
    GsfInput *input = gsf_input_memory_new(reinterpret_cast<const guint8 *>(file.constData()), file.size(), false);
    GsfInfile *container = gsf_infile_msole_new(input, nullptr);
    require(container, "the file is no container");
    GsfInput *stream = gsf_infile_child_by_name(container, "Workbook");
    require(stream, "the container has no workbook");
    const auto size = gsf_input_size(stream);
    QByteArray content(int(size), '\0');
    require(gsf_input_read(stream, size_t(size), reinterpret_cast<guint8 *>(content.data())), "the stream is cut off");
    g_object_unref(stream);
    g_object_unref(container);
    g_object_unref(input);
    return content;
}

struct Record {
    int type;
    int position;
    QByteArray content;
};

int u16(const QByteArray &bytes, int at)
{
    require(at >= 0 && at + 2 <= bytes.size(), "a field is cut off");
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

quint32 u32(const QByteArray &bytes, int at)
{
    return quint32(u16(bytes, at)) | quint32(u16(bytes, at + 2)) << 16;
}

QVector<Record> recordsOf(const QByteArray &stream)
{
    constexpr int mostContent = 8224;
    QVector<Record> records;
    for (int at = 0; at < stream.size();) {
        const int size = u16(stream, at + 2);
        require(size <= mostContent && at + 4 + size <= stream.size(), "a record is too long");
        records.append({u16(stream, at), at, stream.mid(at + 4, size)});
        at += 4 + size;
    }
    return records;
}

/// Every substream begins with BOF and ends with EOF, and the sheets begin where BOUNDSHEET says.
void checkSubstreams(const QVector<Record> &records, int sheets)
{
    QVector<int> begins;
    QVector<int> told;
    bool inside = false;
    for (const Record &record : records) {
        require(inside != (record.type == 0x809), "a substream does not begin or end");
        if (record.type == 0x809)
            begins.append(record.position);
        if (record.type == 0x85)
            told.append(int(u32(record.content, 0)));
        inside = record.type != 0x0a;
    }
    require(!inside, "the last substream does not end");
    require(begins.size() == 1 + sheets && begins.mid(1) == told, "the sheets are not where they should be");
}

/// Reads SST with its CONTINUE records character by character.
class SharedStrings {
public:
    SharedStrings(const QVector<Record> &records, int first)
        : m_records(records)
        , m_record(first)
    {
    }

    void check(int count)
    {
        require(int(u32(bytes(), 4)) == count, "the number of shared strings is wrong");
        m_at = 8;
        for (int i = 0; i < count; ++i)
            skipString();
        require(m_at == bytes().size(), "there is more after the last shared string");
        require(m_records.at(m_record + 1).type != 0x3c, "a record goes on after the last shared string");
    }

private:
    const QByteArray &bytes() const { return m_records.at(m_record).content; }
    void nextRecord()
    {
        ++m_record;
        require(m_record < m_records.size() && m_records.at(m_record).type == 0x3c, "a shared string is cut off");
        m_at = 0;
    }
    int option()
    {
        require(m_at < bytes().size(), "a string has no option byte");
        const int value = bytes().at(m_at++);
        require(value == 0 || value == 1, "a string has an unknown option");
        return value;
    }
    void skipString()
    {
        if (m_at == bytes().size())
            nextRecord();
        int left = u16(bytes(), m_at);
        m_at += 2;
        int unit = 1 + option();
        while (left > 0) {
            if (m_at == bytes().size() || m_at + unit > bytes().size()) {
                require(m_at == bytes().size() || m_at + 1 == bytes().size(), "a character is cut");
                require(m_at == bytes().size(), "a record ends within a character");
                nextRecord();
                unit = 1 + option();
            }
            const int taken = std::min(left, (bytes().size() - m_at) / unit);
            left -= taken;
            m_at += taken * unit;
        }
    }

    const QVector<Record> &m_records;
    int m_record;
    int m_at = 0;
};

void check(const WorkbookData &book, const QByteArray &file)
{
    const QVector<Record> records = recordsOf(streamOf(file));
    checkSubstreams(records, int(book.sheets.size()));
    int tables = 0;
    for (int index = 0; index < records.size(); ++index) {
        if (records.at(index).type != 0xfc)
            continue;
        SharedStrings(records, index).check(book.texts.size());
        ++tables;
    }
    require(tables == 1, "there is not one table of strings");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    gsf_init();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t longest = 4096;
    const Play play(data, std::min(size, longest));
    QBuffer file;
    file.open(QIODevice::ReadWrite);
    QString error;
    if (writeXls(play.data(), file, &error))
        check(play.data(), file.data());
    else
        require(!error.isEmpty(), "a failure without a reason");
    return 0;
}
