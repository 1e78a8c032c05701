#include "models/daymenuproxymodel.h"

#include "models/menurowrule.h"
#include "session/menucolumns.h"

DayMenuProxyModel::DayMenuProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

void DayMenuProxyModel::setDate(QDate date)
{
    m_date = date.toString(Qt::ISODate);
}

void DayMenuProxyModel::setSegment(uint segmentID)
{
    m_segment = QString::number(segmentID);
}

void DayMenuProxyModel::setPerson(int uid)
{
    m_person = uid;
}

void DayMenuProxyModel::setOrderLimitEnabled(bool enabled)
{
    m_orderLimitEnabled = enabled;
}

bool DayMenuProxyModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    if (isOfThisCard(row))
        return isOfInterest(row);
    return isHeading(row) && headsShownFood(row);
}

bool DayMenuProxyModel::filterAcceptsColumn(int column, const QModelIndex & /*parent*/) const
{
    return MenuRowRule::acceptsColumn(column, m_orderLimitEnabled);
}

QString DayMenuProxyModel::text(int row, int column) const
{
    return sourceModel()->index(row, column).data().toString();
}

bool DayMenuProxyModel::isOfThisCard(int row) const
{
    return !m_date.isEmpty() && text(row, MenuColumn::SegmentId) == m_segment && text(row, MenuColumn::Date) == m_date;
}

bool DayMenuProxyModel::isOfInterest(int row) const
{
    return m_person == -1 || text(row, MenuColumn::Total).toInt() > 0;
}

bool DayMenuProxyModel::isHeading(int row) const
{
    return text(row, MenuColumn::FoodId) == QLatin1String("0");
}

bool DayMenuProxyModel::headsShownFood(int heading) const
{
    const int rows = sourceModel()->rowCount();
    for (int row = heading + 1; row < rows && !isHeading(row); ++row) {
        if (isOfThisCard(row) && isOfInterest(row))
            return true;
    }
    return false;
}
