#pragma once

class QAbstractItemModel;
class QVariant;

/// The rules for the rows of a menu grid that `MenuProxyModel` and `OrderProxyModel` share. Columns as in
/// session/menucolumns.h, which puts food and total in the same places in the day's grid and in a person's.
namespace MenuRowRule {

/// The value of `first filter` and `supplier filter` that switches the filter off.
constexpr int noFilter = -1;

/// Whether `foodId`, a cell of the food column, is that of a heading: "0". An empty cell is none: the total row of a
/// person's grid has one, and it must stay visible.
bool isHeading(const QVariant &foodId);

/// Whether `row` of `grid` is shown. In this order: a heading directly above another heading, or with no food after it,
/// is hidden; with `firstFilter` set, a row whose total is 0 or empty is hidden; without `supplierFilter`, all others
/// are shown; with it, those of that supplier whose total is not 0 (a heading has no supplier and is hidden).
bool accepts(const QAbstractItemModel &grid, int row, int firstFilter, int supplierFilter);

/// Whether `column` of a day's or a week's grid is shown: name, total and, with the order limit enabled, limit.
bool acceptsColumn(int column, bool orderLimitEnabled);

} // namespace MenuRowRule
