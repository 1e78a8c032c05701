#include "models/menurowrule.h"

#include "session/menucolumns.h"

#include <QAbstractItemModel>

namespace MenuRowRule {

namespace {

QVariant cell(const QAbstractItemModel &grid, int row, int column)
{
    return grid.data(grid.index(row, column));
}

bool hasNoFoodBelow(const QAbstractItemModel &grid, int heading)
{
    const QVariant next = cell(grid, heading + 1, MenuColumn::FoodId);
    return isHeading(next) || next.toString().isEmpty();
}

} // namespace

bool isHeading(const QVariant &foodId)
{
    return foodId.toString() == QLatin1String("0");
}

bool accepts(const QAbstractItemModel &grid, int row, int firstFilter, int supplierFilter)
{
    if (isHeading(cell(grid, row, MenuColumn::FoodId)) && hasNoFoodBelow(grid, row))
        return false;
    const int total = cell(grid, row, MenuColumn::Total).toInt();
    if (total == 0 && firstFilter != noFilter)
        return false;
    if (supplierFilter == noFilter)
        return true;
    return total != 0 && cell(grid, row, MenuColumn::SupplierId).toInt() == supplierFilter;
}

bool acceptsColumn(int column, bool orderLimitEnabled)
{
    return column == MenuColumn::Name || column == MenuColumn::Total
        || (column == MenuColumn::Limit && orderLimitEnabled);
}

} // namespace MenuRowRule
