#include "exports/personmonthsheet.h"

#include "exports/monthbook.h"
#include "exports/reportmonth.h"
#include "exports/sheetparts.h"
#include "exports/sheetsetup.h"
#include "exports/sheetwriter.h"

#include <QAbstractItemModel>
#include <QCoreApplication>

namespace {

/// Of the sheet and of the model alike.
enum Column {
    DateColumn,
    SegmentColumn,
    FoodColumn,
    PriceColumn,
    QuantityColumn,
    SumColumn,
    OrderedColumn,
    DeliveredColumn
};

constexpr double segmentWidth = 12;
constexpr double foodWidth = 45;
constexpr double moneyWidth = 12;
constexpr double wideWidth = 40;
constexpr int headerRow = 3;

QString text(const char *source)
{
    return QCoreApplication::translate("MenuWidget", source);
}

void setUp(SheetWriter &writer)
{
    writer.setWidth(DateColumn, DateColumn, 10);
    writer.setWidth(SegmentColumn, SegmentColumn, segmentWidth);
    writer.setWidth(FoodColumn, FoodColumn, foodWidth);
    // Wide enough for the headings, and two of them for the time in the footer.
    writer.setWidth(PriceColumn, SumColumn, moneyWidth);
    writer.setWidth(OrderedColumn, DeliveredColumn, wideWidth);
    writer.setHeight(2, 3);
}

void writeHeader(SheetWriter &writer, const SheetLook &look)
{
    writer.setHeight(headerRow, 25);
    writer.text(headerRow, DateColumn, text("Dátum"), look.header);
    writer.text(headerRow, SegmentColumn, text("Typ výdaja"), look.header);
    writer.text(headerRow, FoodColumn, text("Jedlo"), look.header);
    writer.text(headerRow, PriceColumn, text("Cena"), look.headerRight);
    writer.text(headerRow, QuantityColumn, text("Počet"), look.header);
    writer.text(headerRow, SumColumn, text("C. celkom"), look.headerRight);
    writer.text(headerRow, OrderedColumn, text("Objednané"), look.header);
    writer.text(headerRow, DeliveredColumn, text("Vydané"), look.header);
}

void writeOrder(SheetWriter &writer, const MonthBook &formats, int row, const PersonMonth::Order &order)
{
    const SheetLook &look = formats.look;
    writer.text(row, DateColumn, order.date, look.cell);
    writer.text(row, SegmentColumn, order.segment, look.cell);
    writer.text(row, FoodColumn, order.food, look.cellLeft);
    writer.number(row, PriceColumn, order.price, formats.money);
    writer.text(row, QuantityColumn, order.quantity, look.cell);
    writer.number(row, SumColumn, order.sum, formats.money);
    writer.text(row, OrderedColumn, order.ordered, look.cell);
    writer.text(row, DeliveredColumn, order.delivered, look.cell);
}

/// The total stands under the sums of the rows.
void writeTotal(SheetWriter &writer, const MonthBook &formats, int row, const QVector<PersonMonth::Order> &orders)
{
    double total = 0;
    for (const PersonMonth::Order &order : orders)
        total += order.sum;
    writer.text(row, DateColumn, text("Cena celkom:"), formats.look.totalLeft);
    writer.merge(row, row, DateColumn, SegmentColumn);
    writer.number(row, SumColumn, total, formats.moneyTotal(total, moneyWidth));
}

} // namespace

QString personMonthTitle()
{
    return text("ZEP - Mesačný výpis objednanej stravy");
}

QVector<PersonMonth::Order> personMonthOrders(const QAbstractItemModel *rows)
{
    if (!rows)
        return {};
    QVector<PersonMonth::Order> orders(rows->rowCount());
    for (int row = 0; row < orders.size(); ++row) {
        const auto cell = [rows, row](Column column) { return rows->index(row, column).data(); };
        orders[row] = {cell(DateColumn).toString(),    cell(SegmentColumn).toString(),  cell(FoodColumn).toString(),
                       cell(PriceColumn).toDouble(),   cell(QuantityColumn).toString(), cell(SumColumn).toDouble(),
                       cell(OrderedColumn).toString(), cell(DeliveredColumn).toString()};
    }
    return orders;
}

bool writePersonMonth(Spreadsheet::Book &book, const PersonMonth &month, const QDateTime &now)
{
    Spreadsheet::Sheet *sheet = beginSheet(book, personMonthTitle());
    if (!sheet)
        return false;
    const MonthBook formats(book);
    SheetWriter writer(*sheet);
    setUp(writer);
    SheetParts::writeTitle(
        writer, formats.look,
        text(" Mesačný výpis objednanej stravy - %1, %2").arg(ReportMonth::text(month.day), month.person),
        DeliveredColumn);
    writeHeader(writer, formats.look);
    int row = headerRow + 1;
    for (const PersonMonth::Order &order : month.orders)
        writeOrder(writer, formats, row++, order);
    SheetParts::writeGap(writer, formats.look, row, DeliveredColumn);
    writeTotal(writer, formats, row + 2, month.orders);
    SheetParts::writeGap(writer, formats.look, row + 6, DeliveredColumn);
    SheetParts::writeFooter(writer, formats.look, row + 8, PriceColumn, QuantityColumn, now);
    return writer.isComplete();
}
