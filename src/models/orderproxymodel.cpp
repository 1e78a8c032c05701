#include "models/orderproxymodel.h"

#include "models/menurowrule.h"
#include "session/menucolumns.h"

OrderProxyModel::OrderProxyModel(int firstFilter, int supplierFilter, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_firstFilter(firstFilter)
    , m_supplierFilter(supplierFilter)
{
}

bool OrderProxyModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    return MenuRowRule::accepts(*sourceModel(), row, m_firstFilter, m_supplierFilter);
}

bool OrderProxyModel::filterAcceptsColumn(int column, const QModelIndex & /*parent*/) const
{
    return column == PersonMenuColumn::Name || column == PersonMenuColumn::Position || column == PersonMenuColumn::Total
        || column == PersonMenuColumn::Money;
}
