#pragma once

#include <QSortFilterProxyModel>

/// One person's order form, over the grid of `FoodRepository::loadPersonDayMenu` (columns `PersonMenuColumn`): hides
/// headings without a food below them. Shows the columns name, position, total and money, as columns 0 to 3. The total
/// row, whose food cell is empty, is no heading and stays visible.
///
/// Editing goes through to the grid. Call `invalidate()` after rows were taken out of it. Not supported: a supplier
/// filter, since this grid has no supplier column.
class OrderProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// `firstFilter` -1 shows rows without orders too, any other value hides them; `supplierFilter` is -1.
    OrderProxyModel(int firstFilter, int supplierFilter, QObject *parent = nullptr);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex &parent) const override;

private:
    const int m_firstFilter;
    const int m_supplierFilter;
};
