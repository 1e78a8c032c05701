#pragma once

#include <QString>
#include <QtGlobal>

class QStandardItemModel;

/// What is done to a menu grid once its rows are there. The sums are taken from the cells' text, in one pass.
///
/// A heading row has "0" as its food and sums the rows *below* it that show the same type position; rows above it do
/// not count. Several headings of one position (types may share one) each sum what is below them.
namespace MenuFolding {

/// Portions and money of a whole grid.
struct Totals {
    qint64 portions = 0;
    double money = 0;
};

/// Writes into each heading's `MenuColumn::Total` the portions of its type. A cell that is no whole number counts 0.
void foldDayMenu(QStandardItemModel &menu);

/// Writes into each heading's `PersonMenuColumn::Total` and `Money` the sums of its type and gives the sums over all
/// headings. Money is then a number with two decimals, a blank and `currencySymbol`, on headings and on the rows below
/// one. With several headings of one position a row gets the symbol once for each of them above it, and its money,
/// no longer a number, counts for the first of them only (with an empty symbol it stays one, and counts for all).
Totals foldPersonMenu(QStandardItemModel &menu, const QString &currencySymbol);

/// Removes from the grid of `WeekMenuColumn` each row without a food that is followed by none with one: the slots of a
/// day on which nothing is published.
void removeEmptyHeadings(QStandardItemModel &menu);

/// An amount as the grids show it: two decimals, a blank and the symbol.
QString moneyText(double amount, const QString &currencySymbol);

} // namespace MenuFolding
