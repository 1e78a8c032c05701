#pragma once

#include "store/orderablerepository.h"

#include <QList>
#include <QVector>

struct FoodRecord;
class QStandardItem;
class QStandardItemModel;
class QString;

/// What the menu editor does to its two lists, without a window. Both have the columns of `MenuColumn`; every cell is
/// text. `menu` holds the rows of one service slot of one day: for each meal type a heading (position "0") and below it
/// its foods in their order. `foods` holds what is not on the menu. A row keeps its cells on its way from one list to
/// the other and back, so a menu item that was taken off and put back is still that item.
///
/// Row numbers are those of the list itself, not of a filter on it.
namespace MenuArrangement {

/// Splits the grid of `FoodRepository::loadDayMenu`: rows without a position go over to `foods`, which must have the
/// columns of the grid and no rows; both keep the order. Puts the supplier's mark and a blank before every name
/// (headings have no mark, so theirs begins with the blank), sets headings in larger bold type, and marks each item
/// that has orders: red name with `orderedToolTip`, food -1, which bars it from removal.
void split(QStandardItemModel &menu, QStandardItemModel &foods, const QString &orderedToolTip);

/// A row of `foods` for a food that was just added to the catalogue, owned by the caller: the food's key, the position
/// of its type, its name without a mark, the price and no portions; the menu's columns are empty.
QList<QStandardItem *> newFoodRow(const FoodRecord &food, uint typePosition);

/// Takes row `food` out of `foods` and inserts it below the first row of `menu` with the same type position: the type's
/// heading, since headings come first. False, with nothing changed, when there is none.
bool add(QStandardItemModel &foods, int food, QStandardItemModel &menu);
/// Moves row `row` of `menu` to the end of `foods`. False, with nothing changed, for headings and marked items.
bool remove(QStandardItemModel &menu, int row, QStandardItemModel &foods);
/// Exchanges row `row` with the one above it, if both are foods of one type; else gives false.
bool moveUp(QStandardItemModel &menu, int row);
/// Exchanges row `row` with the one below it, if both are foods of one type; else gives false.
bool moveDown(QStandardItemModel &menu, int row);

/// The keys of the menu items among `foods`, in their order: what saving deletes.
QVector<uint> removedItems(const QStandardItemModel &foods);
/// The foods of `menu` as records, in their order and numbered from 1: what saving adds (key 0) or updates. Branch,
/// slot and day are those of `slot`. The price may have a comma or a point; a price or limit that is no number counts
/// 0, and so does a limit that is negative. The food of a marked item reads as 0: an update does not write it.
QVector<OrderableRecord> menuItems(const QStandardItemModel &menu, const OrderableRecord &slot);

} // namespace MenuArrangement
