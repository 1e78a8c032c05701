#include "exports/controlmonth.h"

#include <QAbstractItemModel>

namespace {

enum SegmentColumn { SegmentName = 1, SegmentPosition = 3 };
enum TypeColumn { TypeKey = 0, TypeName = 1 };
enum OrderColumn { Pid = 0, PersonName = 1, Date = 3, Quantity = 4, OrderSegment = 5, OrderType = 9 };

QVariant value(const QAbstractItemModel *rows, int row, int column)
{
    return rows->index(row, column).data();
}

/// `text` itself, or the equal `previous`, so that a long run of equal texts is in memory once.
QString shared(const QString &text, const QString &previous)
{
    return text == previous ? previous : text;
}

} // namespace

QVector<ControlMonth::Segment> controlSegments(const QAbstractItemModel *rows)
{
    if (!rows)
        return {};
    QVector<ControlMonth::Segment> segments(rows->rowCount());
    for (int row = 0; row < segments.size(); ++row)
        segments[row] = {value(rows, row, SegmentName).toString(), value(rows, row, SegmentPosition).toInt()};
    return segments;
}

QVector<ControlMonth::Type> controlTypes(const QAbstractItemModel *rows)
{
    if (!rows)
        return {};
    QVector<ControlMonth::Type> types(rows->rowCount());
    for (int row = 0; row < types.size(); ++row)
        types[row] = {value(rows, row, TypeName).toString(), value(rows, row, TypeKey).toInt()};
    return types;
}

QVector<ControlMonth::Order> controlOrders(const QAbstractItemModel *rows)
{
    if (!rows)
        return {};
    QVector<ControlMonth::Order> orders(rows->rowCount());
    ControlMonth::Order previous;
    for (int row = 0; row < orders.size(); ++row) {
        previous = {shared(value(rows, row, Pid).toString(), previous.pid),
                    shared(value(rows, row, PersonName).toString(), previous.personName),
                    value(rows, row, Date).toDate(),
                    value(rows, row, Quantity).toInt(),
                    value(rows, row, OrderSegment).toInt(),
                    value(rows, row, OrderType).toInt()};
        orders[row] = previous;
    }
    return orders;
}

ControlPlaces::ControlPlaces(const ControlMonth &month)
    : m_month(month)
    , m_columns(month.columns())
{
    // Backwards: of two with one key the first one counts.
    for (int index = month.segments.size() - 1; index >= 0; --index)
        m_segments.insert(month.segments.at(index).position, index);
    for (int index = month.types.size() - 1; index >= 0; --index)
        m_types.insert(month.types.at(index).typeID, index);
}

int ControlPlaces::columnOf(const ControlMonth::Order &order) const
{
    const QDate date = order.date;
    const int segment = m_segments.value(order.segment, -1);
    const int type = m_types.value(order.typeID, -1);
    const bool inMonth = date.isValid() && date.year() == m_month.day.year() && date.month() == m_month.day.month();
    return inMonth && segment >= 0 && type >= 0 ? m_columns.type(date.day(), segment, type) : -1;
}
