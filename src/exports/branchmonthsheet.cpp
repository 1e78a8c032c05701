#include "exports/branchmonthsheet.h"

#include "exports/monthbook.h"
#include "exports/reportmonth.h"
#include "exports/sheetparts.h"
#include "exports/sheetsetup.h"
#include "exports/sheetwriter.h"

#include <QAbstractItemModel>
#include <QCoreApplication>

namespace {

enum Column { PidColumn, PamIdColumn, NameColumn, QuantityColumn, SumColumn };
enum ModelColumn { ModelQuantity = 3, ModelSum = 5 };

constexpr double widths[] = {10, 18, 45, 25, 10};
constexpr int headerRow = 9;
constexpr int firstRow = 10;

QString text(const char *source)
{
    return QCoreApplication::translate("MenuWidget", source);
}

void setUp(SheetWriter &writer)
{
    for (int column = PidColumn; column <= SumColumn; ++column)
        writer.setWidth(column, column, widths[column]);
    // Two empty rows above the headings, on purpose: a later page begins with their air and has no headings.
    writer.repeatRows(5, 6);
}

void writeHeader(SheetWriter &writer, const SheetLook &look)
{
    writer.setHeight(headerRow, 18);
    writer.text(headerRow, PidColumn, text("ID"), look.header);
    writer.text(headerRow, PamIdColumn, text("pamID"), look.header);
    writer.text(headerRow, NameColumn, text("Meno"), look.header);
    writer.text(headerRow, QuantityColumn, text("Počet objednávok"), look.header);
    writer.text(headerRow, SumColumn, text("Suma"), look.headerRight);
}

void writePerson(SheetWriter &writer, const MonthBook &formats, int row, const BranchMonth::Person &person)
{
    writer.text(row, PidColumn, person.pid, formats.look.cell);
    writer.text(row, PamIdColumn, person.pamId, formats.look.cell);
    writer.text(row, NameColumn, person.name, formats.look.cellLeft);
    writer.number(row, QuantityColumn, person.quantity, formats.look.cell);
    writer.number(row, SumColumn, person.sum, formats.money);
}

void writeTotals(SheetWriter &writer, const MonthBook &formats, int row, const QVector<BranchMonth::Person> &people)
{
    double quantity = 0;
    double sum = 0;
    for (const BranchMonth::Person &person : people) {
        quantity += person.quantity;
        sum += person.sum;
    }
    writer.number(row, QuantityColumn, quantity, formats.look.total);
    writer.number(row, SumColumn, sum, formats.moneyTotal(sum, widths[SumColumn]));
}

} // namespace

QString branchMonthTitle()
{
    return text("ZEP - Mesačný výpis objednávok zamestnancov");
}

QVector<BranchMonth::Person> branchMonthPeople(const QAbstractItemModel *rows)
{
    if (!rows)
        return {};
    QVector<BranchMonth::Person> people(rows->rowCount());
    for (int row = 0; row < people.size(); ++row) {
        people[row] = {rows->index(row, PidColumn).data().toString(), rows->index(row, PamIdColumn).data().toString(),
                       rows->index(row, NameColumn).data().toString(),
                       rows->index(row, ModelQuantity).data().toDouble(), rows->index(row, ModelSum).data().toDouble()};
    }
    return people;
}

bool writeBranchMonth(Spreadsheet::Book &book, const BranchMonth &month, const QDateTime &now)
{
    Spreadsheet::Sheet *sheet = beginSheet(book, branchMonthTitle());
    if (!sheet)
        return false;
    const MonthBook formats(book);
    SheetWriter writer(*sheet);
    setUp(writer);
    SheetParts::writeTitle(writer, formats.look,
                           text(" Mesačný výpis objednávok zamestnancov - ") + ReportMonth::text(month.day), SumColumn);
    SheetParts::writeBranch(writer, formats.look, month.branch);
    SheetParts::writeGap(writer, formats.look, 7, SumColumn);
    writeHeader(writer, formats.look);
    int row = firstRow;
    for (const BranchMonth::Person &person : month.people)
        writePerson(writer, formats, row++, person);
    SheetParts::writeGap(writer, formats.look, row, SumColumn);
    writeTotals(writer, formats, row + 2, month.people);
    SheetParts::writeGap(writer, formats.look, row + 6, SumColumn);
    SheetParts::writeFooter(writer, formats.look, row + 8, QuantityColumn, SumColumn, now);
    return writer.isComplete();
}
