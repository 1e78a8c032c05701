#include "exports/boardreport.h"

#include "exports/reportcell.h"
#include "exports/reportmonth.h"
#include "store/menufolding.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QLocale>

namespace {

/// Columns that hold money, in both grids of a month.
enum MoneyColumn { PriceColumn = 3, SumColumn = 5 };

constexpr int namedColumns = 8;

} // namespace

namespace BoardReport {

QString moneyText(double amount)
{
    return MenuFolding::moneyText(amount, QLocale().currencySymbol(QLocale::CurrencySymbol));
}

double monthlyTotal(const QAbstractItemModel &rows)
{
    double total = 0;
    for (int row = 0; row < rows.rowCount(); ++row)
        total += rows.index(row, SumColumn).data().toDouble();
    return total;
}

void setValue(const QAbstractItemModel *rows, double total, int row, const QString &name, QVariant &value)
{
    if (name == QLatin1String("8")) {
        value = moneyText(total);
        return;
    }
    const QModelIndex cell = rows ? reportCell(*rows, row, name, namedColumns) : QModelIndex();
    if (!cell.isValid())
        return;
    const bool isMoney = cell.column() == PriceColumn || cell.column() == SumColumn;
    value = isMoney ? moneyText(cell.data().toDouble()) : cell.data();
}

QString personHeader(QDate day, const QString &person)
{
    return ReportMonth::text(day) + QCoreApplication::translate("MenuWidget", ", ID: ") + person;
}

QString branchHeader(QDate day, int branchRow, const QString &branch)
{
    const QString month = ReportMonth::text(day);
    return branchRow == 0 ? month : month + QLatin1String(", ") + branch;
}

} // namespace BoardReport
