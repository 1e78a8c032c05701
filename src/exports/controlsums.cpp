#include "exports/controlsums.h"

ControlSums::ControlSums(const ControlColumns &columns)
    : m_columns(columns)
    , m_sums(std::size_t(columns.ofAllDays()))
    , m_hasOrders(std::size_t(columns.days()))
{
}

void ControlSums::add(int column, int quantity)
{
    const int offset = column - ControlColumns::firstOfDays;
    m_sums[std::size_t(offset)] += quantity;
    m_hasOrders[std::size_t(offset / m_columns.perDay())] = true;
}

qint64 ControlSums::ofType(int day, int segment, int type) const
{
    return m_sums[std::size_t(m_columns.type(day, segment, type) - ControlColumns::firstOfDays)];
}

qint64 ControlSums::ofSegment(int day, int segment) const
{
    qint64 sum = 0;
    for (int type = 0; type < m_columns.types(); ++type)
        sum += ofType(day, segment, type);
    return sum;
}

qint64 ControlSums::ofSegment(int segment) const
{
    qint64 sum = 0;
    for (int day = 1; day <= m_columns.days(); ++day)
        sum += ofSegment(day, segment);
    return sum;
}
