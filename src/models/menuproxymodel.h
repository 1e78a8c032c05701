#pragma once

#include <QSortFilterProxyModel>

/// The menu of one day and slot, over the grid of `FoodRepository::loadDayMenu` (columns `MenuColumn`): hides headings
/// without a food below them and, when told, rows without orders or of other suppliers (rules: `MenuRowRule::accepts`).
/// Shows the columns name, total and, with the order limit enabled, limit, as columns 0, 1 and 2.
///
/// The filters are fixed at construction. A change in one row does not move its neighbours' headings by itself: call
/// `invalidate()` after the grid was changed.
class MenuProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// `firstFilter` -1 shows rows without orders too, any other value hides them; `supplierFilter` is the supplierID
    /// to show, -1 for all; `orderLimitEnabled` shows the limit column.
    MenuProxyModel(int firstFilter, int supplierFilter, bool orderLimitEnabled, QObject *parent = nullptr);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex &parent) const override;

private:
    const int m_firstFilter;
    const int m_supplierFilter;
    const bool m_orderLimitEnabled;
};
