// XLS files against the floor: the same cells as records one after the other, straight into a file, each text encoded
// as it comes, with no model, no shared strings and no container behind. A month of 60,000 rows and 8 columns with
// days, slots and dishes that come again and moments that do not; the same with hardly a text that comes again, which
// has no target; and the cross table of a whole month with 372,000 numbers, each read, added to and written back, as
// far as XLS has columns. Processor time of writing, medians of several runs, each in a process of its own; the cells
// are made in every run, and what that takes is left out of both sides. Targets: at most 2 times the floor, and a row
// among 60,000 as quick as one among 15,000.
#include "spreadsheet/book.h"
#include "support/figures.h"
#include "support/processcost.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstring>
#include <vector>

using namespace Spreadsheet;

namespace {

constexpr int runs = 11;
constexpr double limit = 2;
constexpr double linearLimit = 1.15;
constexpr int columns = 8;

/// A cell as the report has it: a text, or a number where there is none.
struct Value {
    QString text;
    double number = 0;
};
using Row = std::vector<Value>;
using Table = std::vector<Row>;

Value text(const QString &string)
{
    return {string, 0};
}

Value number(double value)
{
    return {QString(), value};
}

/// Digits, as the report of a person's meals has them.
constexpr double widths[columns] = {10, 12, 45, 12, 12, 12, 40, 40};

/// Which row's text stands in a row: that of every row is its own, or comes again after so many.
using Repeat = int (*)(int row, int after);

int comesAgain(int row, int after)
{
    return row % after;
}

int itsOwn(int row, int /*after*/)
{
    return row;
}

/// Day, slot, dish, price, portions, sum, who ordered when, and when it was given out.
Table month(int rows, Repeat repeat)
{
    constexpr int dishes = 154;
    Table table;
    table.reserve(std::size_t(rows));
    for (int row = 0; row < rows; ++row) {
        const double price = 3.5 + row % 40 * 0.05;
        const int day = row % 30 + 1;
        table.push_back(
            {text(QStringLiteral("%1. 11. 2026").arg(day, 2, 10, QLatin1Char('0'))),
             text(QStringLiteral("Obed %1").arg(repeat(row, 3))),
             text(QStringLiteral("Vyprážaný rezeň č. %1 so šalátom").arg(repeat(row, dishes))), number(price),
             text(QString::number(repeat(row, 3) + 1)), number(price * (row % 3 + 1)),
             text(QStringLiteral("ZEP-adminID: 2, %1.11.2026, 8:%2:%3").arg(day).arg(row / 60 % 60).arg(row)),
             text(QStringLiteral("%1.11.2026 11:%2:%3").arg(day).arg(row / 60 % 60).arg(row / 2))});
    }
    return table;
}

/// The floor: each record into a file as it comes.
class BareRecords {
public:
    explicit BareRecords(const QString &fileName)
        : m_file(fileName)
    {
        if (!m_file.open(QIODevice::WriteOnly))
            qFatal("%s cannot be written", qPrintable(fileName));
    }

    /// NUMBER
    void writeNumber(int row, int col, double value)
    {
        begin(0x0203, row, col);
        std::memcpy(m_at, &value, sizeof value);
        m_at += sizeof value;
        end();
    }

    /// LABEL
    void writeText(int row, int col, const QString &text)
    {
        const auto *units = reinterpret_cast<const ushort *>(text.constData());
        const int size = text.size();
        const bool wide = isWide(units, size);
        begin(0x0204, row, col);
        put(size);
        *m_at++ = uchar(wide);
        if (wide) {
            std::memcpy(m_at, units, std::size_t(size) * sizeof(ushort));
            m_at += sizeof(ushort) * std::size_t(size);
        } else {
            for (int i = 0; i < size; ++i)
                *m_at++ = uchar(units[i]);
        }
        end();
    }

private:
    static constexpr int headerSize = 4;
    static constexpr int mostRecord = 8228;

    static bool isWide(const ushort *units, int size)
    {
        uint all = 0;
        for (int i = 0; i < size; ++i)
            all |= units[i];
        return all > 0xff;
    }
    void put(int value)
    {
        qToLittleEndian<quint16>(quint16(value), m_at);
        m_at += sizeof(quint16);
    }
    void begin(int type, int row, int col)
    {
        m_at = m_record;
        for (const int field : {type, 0, row, col, 15})
            put(field);
    }
    void end()
    {
        const qint64 size = m_at - m_record;
        qToLittleEndian<quint16>(quint16(size - headerSize), m_record + sizeof(quint16));
        if (m_file.write(reinterpret_cast<const char *>(m_record), size) != size)
            qFatal("the disk is full");
    }

    QFile m_file;
    uchar m_record[mostRecord];
    uchar *m_at = m_record;
};

void writeBareMonth(const Table &table, const QString &fileName)
{
    BareRecords records(fileName);
    for (std::size_t row = 0; row < table.size(); ++row) {
        for (int col = 0; col < columns; ++col) {
            const Value &value = table[row][std::size_t(col)];
            if (value.text.isNull())
                records.writeNumber(int(row), col, value.number);
            else
                records.writeText(int(row), col, value.text);
        }
    }
}

void save(Book &book, const QString &fileName)
{
    if (!book.save(fileName))
        qFatal("%s", qPrintable(book.errorMessage()));
}

void writeMonth(const Table &table, const QString &fileName)
{
    const BookPointer book = xlCreateBookA();
    Sheet *sheet = book->addSheet(QStringLiteral("ZEP"));
    Format *format = book->addFormat();
    format->setBorder(BorderStyle::Thin);
    format->setWrap(true);
    for (int col = 0; col < columns; ++col)
        sheet->setCol(col, col, widths[col]);
    for (std::size_t row = 0; row < table.size(); ++row) {
        for (int col = 0; col < columns; ++col) {
            const Value &value = table[row][std::size_t(col)];
            if (value.text.isNull())
                sheet->writeNum(int(row), col, value.number, format);
            else
                sheet->writeStr(int(row), col, value.text, format);
        }
    }
    save(*book, fileName);
}

/// 2,000 persons, 31 days of 3 slots and 5 types, of which 40 % are ordered: every row has its own cells.
template<typename Visit> void crossTable(Visit visit)
{
    constexpr int persons = 2000;
    constexpr int cells = 465;
    constexpr int lastColumn = 255;
    for (int person = 0; person < persons; ++person) {
        for (int cell = 0; cell < cells; ++cell) {
            if ((cell * 7 + person * 3) % 5 < 2 && cell + 2 <= lastColumn)
                visit(person, cell + 2, 1 + (cell + person) % 3);
        }
    }
}

void writeBareCrossTable(const QString &fileName)
{
    BareRecords records(fileName);
    crossTable([&](int row, int col, int quantity) { records.writeNumber(row, col, quantity); });
}

void writeCrossTable(const QString &fileName)
{
    const BookPointer book = xlCreateBookA();
    Sheet *sheet = book->addSheet(QStringLiteral("ZEP"));
    const Format *format = book->addFormat();
    crossTable([&](int row, int col, int quantity) {
        sheet->writeNum(row, col, sheet->readNum(row, col) + quantity, format);
    });
    save(*book, fileName);
}

struct Comparison {
    ProcessCost floor;
    ProcessCost full;
};

QString textOf(const QString &what, const Comparison &comparison)
{
    return QStringLiteral("%1: %2 ms, %3 MB; floor %4 ms, %5 MB; ratio")
        .arg(what)
        .arg(comparison.full.milliseconds, 0, 'f', 1)
        .arg(comparison.full.megabytes, 0, 'f', 0)
        .arg(comparison.floor.milliseconds, 0, 'f', 1)
        .arg(comparison.floor.megabytes, 0, 'f', 0);
}

void report(const QString &what, const Comparison &comparison)
{
    printAgainstLimit(textOf(what, comparison), comparison.full.milliseconds / comparison.floor.milliseconds, limit,
                      QStringLiteral("times"));
}

Comparison compareMonth(int rows, Repeat repeat, const QString &fileName)
{
    Table table;
    const auto prepare = [&] { table = month(rows, repeat); };
    return {medianCost(runs, prepare, [&] { writeBareMonth(table, fileName); }),
            medianCost(runs, prepare, [&] { writeMonth(table, fileName); })};
}

/// Milliseconds of writing.
double reportMonth(int rows, const QString &fileName)
{
    const Comparison comparison = compareMonth(rows, comesAgain, fileName);
    report(QStringLiteral("a month of %1 rows").arg(rows), comparison);
    return comparison.full.milliseconds;
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("book.xls"));
    constexpr int fewRows = 15000;
    constexpr int manyRows = 60000;
    const double few = reportMonth(fewRows, fileName);
    const double many = reportMonth(manyRows, fileName);
    printAgainstLimit(QStringLiteral("a row among %1 against one among %2").arg(manyRows).arg(fewRows),
                      many / manyRows / (few / fewRows), linearLimit, QStringLiteral("times"));
    const Comparison different = compareMonth(manyRows, itsOwn, fileName);
    printLine(
        textOf(QStringLiteral("%1 rows of different texts").arg(manyRows), different)
        + QStringLiteral("  %1 times").arg(different.full.milliseconds / different.floor.milliseconds, 0, 'f', 2));
    report(QStringLiteral("a cross table"),
           {medianCost(runs, [&] { writeBareCrossTable(fileName); }),
            medianCost(runs, [&] { writeCrossTable(fileName); })});
    return 0;
}
