// The control cross-table of a month as an XLSX workbook: 31 days of 3 slots and 5 types, two cells of five with a
// quantity, filled through the Book interface as the control export does, against libxlsxwriter given the same cells
// with no model behind. Processor time and peak memory, medians of several runs, each in a process of its own. Targets:
// at most 1.5 times the floor in both, and no more time a row for many rows than for few.
#include "spreadsheet/book.h"
#include "support/figures.h"
#include "support/processcost.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <random>
#include <vector>
#include <xlsxwriter.h>

namespace {

using namespace Spreadsheet;

constexpr int days = 31;
constexpr int slotsOfDay = 3;
constexpr int types = 5;
constexpr int dayColumns = slotsOfDay * types;
constexpr int firstColumn = 2;
constexpr int lastColumn = firstColumn + days * dayColumns;
constexpr int headRow = 9;
constexpr int firstRow = 12;
const QString title = QStringLiteral("Kontrolný export stravy - november 2026");
const QString typeLetters = QStringLiteral("PHVDZ");

QString personName(int person)
{
    return QStringLiteral("Bartolomejčíková %1 Maximiliána").arg(person);
}

QString personId(int person)
{
    return QString::number(100000 + person);
}

/// The quantities of a table, person by person, the same in each run; nothing is kept of them.
template<typename Visit, typename EndOfPerson> void forEachQuantity(int persons, Visit visit, EndOfPerson endOfPerson)
{
    std::minstd_rand random(20261121);
    for (int person = 0; person < persons; ++person) {
        for (int place = 0; place < days * dayColumns; ++place) {
            const auto number = random() >> 8U;
            if (number % 5 < 2)
                visit(person, place, 1 + int(number / 5 % 3));
        }
        endOfPerson(person);
    }
}

/// The sums below a table: by slot, for each day, slot and type.
class Sums {
public:
    void add(int place, int quantity) { m_sums[std::size_t(place)] += quantity; }
    template<typename Visit> void forEach(int row, Visit visit) const
    {
        for (int place = 0; place < days * dayColumns; ++place)
            visit(row + place % dayColumns / types, firstColumn + place, m_sums[std::size_t(place)]);
    }

private:
    std::vector<int> m_sums = std::vector<int>(std::size_t(days * dayColumns), 0);
};

void require(bool done)
{
    if (!done)
        qFatal("the workbook cannot be written");
}

/// Through the interface, every result looked at, every quantity added to the number that its cell has.
class BookExport {
public:
    explicit BookExport(int persons)
        : m_persons(persons)
    {
        m_book->setDefaultFont(QStringLiteral("MS Shell Dlg 2"), 10);
        m_book->setRgbMode(true);
        m_cell = m_book->addFormat();
        m_cell->setBorder(BorderStyle::Thin);
        m_cell->setBorderColor(m_book->colorPack(192, 192, 192));
        m_sheet = m_book->addSheet(QStringLiteral("ZEP - Kontrolný export stravy"));
    }

    void write(const QString &fileName)
    {
        head();
        body();
        require(m_book->save(fileName));
    }

private:
    void head()
    {
        require(m_sheet->setMerge(0, 1, 0, lastColumn) && m_sheet->writeStr(0, 0, title, m_cell)
                && m_sheet->setCol(firstColumn, lastColumn, 1.5));
        for (int day = 0; day < days; ++day) {
            const int col = firstColumn + day * dayColumns;
            require(m_sheet->writeStr(headRow, col, QStringLiteral("%1.").arg(day + 1), m_cell)
                    && m_sheet->setMerge(headRow, headRow, col, col + dayColumns - 1));
            for (int place = 0; place < dayColumns; ++place)
                require(m_sheet->writeStr(headRow + 2, col + place, typeLetters.mid(place % types, 1), m_cell));
        }
    }

    void body()
    {
        Sums sums;
        int ofPerson = 0;
        forEachQuantity(
            m_persons,
            [&](int person, int place, int quantity) {
                const int row = firstRow + person;
                const int col = firstColumn + place;
                require(m_sheet->writeNum(row, col, m_sheet->readNum(row, col) + quantity, m_cell));
                sums.add(place, quantity);
                ofPerson += quantity;
            },
            [&](int person) {
                const int row = firstRow + person;
                require(m_sheet->writeStr(row, 0, personId(person), m_cell)
                        && m_sheet->writeStr(row, 1, personName(person), m_cell)
                        && m_sheet->writeNum(row, lastColumn, ofPerson, m_cell));
                ofPerson = 0;
            });
        sums.forEach(firstRow + m_persons,
                     [this](int row, int col, int sum) { require(m_sheet->writeNum(row, col, sum, m_cell)); });
    }

    const int m_persons;
    const BookPointer m_book = xlCreateXMLBookA();
    Format *m_cell = nullptr;
    Sheet *m_sheet = nullptr;
};

/// The floor.
class BareExport {
public:
    BareExport(int persons, const QString &fileName, bool constantMemory)
        : m_persons(persons)
    {
        lxw_workbook_options options = {};
        options.constant_memory = constantMemory ? LXW_TRUE : LXW_FALSE;
        m_workbook = workbook_new_opt(QFile::encodeName(fileName).constData(), &options);
        m_cell = workbook_add_format(m_workbook);
        format_set_border(m_cell, LXW_BORDER_THIN);
        format_set_border_color(m_cell, 0xc0c0c0);
        m_sheet = workbook_add_worksheet(m_workbook, "ZEP - Kontrolný export stravy");
    }

    void write()
    {
        head();
        body();
        require(workbook_close(m_workbook) == LXW_NO_ERROR);
    }

private:
    void text(int row, int col, const QString &text)
    {
        worksheet_write_string(m_sheet, lxw_row_t(row), lxw_col_t(col), text.toUtf8().constData(), m_cell);
    }
    void number(int row, int col, double number)
    {
        worksheet_write_number(m_sheet, lxw_row_t(row), lxw_col_t(col), number, m_cell);
    }

    void head()
    {
        worksheet_merge_range(m_sheet, 0, 0, 1, lastColumn, title.toUtf8().constData(), m_cell);
        worksheet_set_column(m_sheet, firstColumn, lastColumn, 1.5, nullptr);
        for (int day = 0; day < days; ++day) {
            const auto col = lxw_col_t(firstColumn + day * dayColumns);
            worksheet_merge_range(m_sheet, headRow, col, headRow, lxw_col_t(col + dayColumns - 1),
                                  QByteArray::number(day + 1).append('.').constData(), m_cell);
        }
        for (int place = 0; place < days * dayColumns; ++place)
            text(headRow + 2, firstColumn + place, typeLetters.mid(place % types, 1));
    }

    void body()
    {
        Sums sums;
        int ofPerson = 0;
        forEachQuantity(
            m_persons,
            [&](int person, int place, int quantity) {
                number(firstRow + person, firstColumn + place, quantity);
                sums.add(place, quantity);
                ofPerson += quantity;
            },
            [&](int person) {
                const int row = firstRow + person;
                text(row, 0, personId(person));
                text(row, 1, personName(person));
                number(row, lastColumn, ofPerson);
                ofPerson = 0;
            });
        // Row by row, which the mode of constant memory wants.
        for (int slot = 0; slot < slotsOfDay; ++slot)
            sums.forEach(firstRow + m_persons, [&](int row, int col, int sum) {
                if (row == firstRow + m_persons + slot)
                    number(row, col, sum);
            });
    }

    const int m_persons;
    lxw_workbook *m_workbook = nullptr;
    lxw_format *m_cell = nullptr;
    lxw_worksheet *m_sheet = nullptr;
};

void printCost(const QString &what, const ProcessCost &cost)
{
    printLine(QStringLiteral("%1  %2 ms  %3 MB")
                  .arg(what, -52)
                  .arg(cost.milliseconds, 0, 'f', 0)
                  .arg(cost.megabytes, 0, 'f', 1));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("month.xlsx"));
    constexpr int runs = 7;
    constexpr int few = 500;
    constexpr int many = 2000;
    constexpr double limit = 1.5;
    constexpr double linear = 1.1;
    const ProcessCost nothing = medianCost(runs, [] {});
    const ProcessCost floor = medianCost(runs, [&] { BareExport(many, fileName, false).write(); });
    const ProcessCost lean = medianCost(runs, [&] { BareExport(many, fileName, true).write(); });
    const ProcessCost book = medianCost(runs, [&] { BookExport(many).write(fileName); });
    const ProcessCost fewRows = medianCost(runs, [&] { BookExport(few).write(fileName); });
    printCost(QStringLiteral("a process that does nothing"), nothing);
    printCost(QStringLiteral("%1 employees, floor").arg(many), floor);
    printCost(QStringLiteral("%1 employees, floor in constant memory").arg(many), lean);
    printCost(QStringLiteral("%1 employees, workbook").arg(many), book);
    printCost(QStringLiteral("%1 employees, workbook").arg(few), fewRows);
    printAgainstLimit(QStringLiteral("time of the floor"), book.milliseconds / floor.milliseconds, limit,
                      QStringLiteral("times"));
    printAgainstLimit(QStringLiteral("time of the floor in constant memory"), book.milliseconds / lean.milliseconds,
                      limit, QStringLiteral("times"));
    printAgainstLimit(QStringLiteral("memory of the floor"), book.megabytes / floor.megabytes, limit,
                      QStringLiteral("times"));
    printAgainstLimit(QStringLiteral("time of a row at %1 rows to that at %2").arg(many).arg(few),
                      book.milliseconds / many / (fewRows.milliseconds / few), linear, QStringLiteral("times"));
    return 0;
}
