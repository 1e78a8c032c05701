#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

class QAbstractItemModel;

/// What the board's printouts, the week's menu and the two of a month, say under the names in their templates. Their
/// rows are grids of `FoodRepository::loadWeekMenu`, `OrderModel::personDateOrders` and `OrderModel::branchDateOrders`.
/// All functions only read; texts follow the default locale.
namespace BoardReport {

/// An amount of money: two decimals with a point, a blank and the locale's currency symbol.
QString moneyText(double amount);

/// The sum of column 5 over all rows; a cell that is no number counts 0.
double monthlyTotal(const QAbstractItemModel &rows);

/// Sets `value` for the token `name` in `row`, counted from 0: for "0" to "7" the cell of that column, as it stands or,
/// in the columns 3 and 5, as money; for "8", in whatever row, `total` as money. Any other name, and a cell that `rows`
/// does not have (null has none), leaves `value` as it came.
void setValue(const QAbstractItemModel *rows, double total, int row, const QString &name, QVariant &value);

/// The header of one person's month: "marca 2020, ID: [17] Adamec Ján". `day` is any day of the month, `person` the
/// text of the selector of people.
QString personHeader(QDate day, const QString &person);

/// The header of a branch's month: "marca 2020, Výroba", or the month alone for row 0 of the selector of branches,
/// which stands for no branch.
QString branchHeader(QDate day, int branchRow, const QString &branch);

} // namespace BoardReport
