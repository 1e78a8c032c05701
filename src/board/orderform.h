#pragma once

#include "store/orderrepository.h"

#include <QString>
#include <QVector>

class QStandardItemModel;

/// What the order dialog does to one person's order form, without a window: the grid of
/// `FoodRepository::loadPersonDayMenu` (columns `PersonMenuColumn`), whose last row is the grand total. An empty grid
/// is left as it is.
namespace OrderForm {

/// Removes every food that cannot be ordered: one that is not on the menu (empty position) or whose item is not open
/// for orders (locked other than 1). Headings and the total row stay.
void removeUnorderable(QStandardItemModel &grid);

/// Sets the names of headings (position "0") in bold. An item of an informative type has that position too and is none.
void emphasiseHeadings(QStandardItemModel &grid);

/// Lets the mouse read a food's name that the dialog is too narrow for, as typed.
void addToolTips(QStandardItemModel &grid);

/// Lets only the quantities be reached by the keyboard and typed: all cells are disabled but the white quantity of each
/// food of a type that can be ordered. An informative type's cells stay disabled, but its position cell is marked for
/// `TotalDelegate` as having buttons all the same: such a type is out of the reach of typing only.
void openQuantities(QStandardItemModel &grid);

/// The row of the first quantity that can be typed, -1 without one.
int firstQuantityRow(const QStandardItemModel &grid);

/// The portions that a quantity cell stands for. Empty text, or text that is no whole number, is 0. A negative number
/// is read as unsigned, which makes it very large: 2147483647, the largest quantity an order can hold, as is any number
/// above that. So a limit refuses it; without one it is stored as that conspicuous figure, never as a negative order.
int quantity(const QString &cell);

/// One order of person `uid` for each food in the grid, in the grid's order and also for quantity 0, without the audit
/// text.
QVector<OrderRecord> orders(const QStandardItemModel &grid, unsigned uid);

/// Sums the form anew from quantities and prices. Every food's money becomes quantity × price; every heading's quantity
/// and money the sums over the foods of its type below it; the last row's the sums over all headings. Money is written
/// with two decimals, a blank and `currencySymbol`. A view hears of the cells whose text changes and of no other.
void recalculate(QStandardItemModel &grid, const QString &currencySymbol);

} // namespace OrderForm
