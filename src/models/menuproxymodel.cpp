#include "models/menuproxymodel.h"

#include "models/menurowrule.h"
#include "session/menucolumns.h"

MenuProxyModel::MenuProxyModel(int firstFilter, int supplierFilter, bool orderLimitEnabled, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_firstFilter(firstFilter)
    , m_supplierFilter(supplierFilter)
    , m_orderLimitEnabled(orderLimitEnabled)
{
}

bool MenuProxyModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    return MenuRowRule::accepts(*sourceModel(), row, m_firstFilter, m_supplierFilter);
}

bool MenuProxyModel::filterAcceptsColumn(int column, const QModelIndex & /*parent*/) const
{
    return MenuRowRule::acceptsColumn(column, m_orderLimitEnabled);
}
