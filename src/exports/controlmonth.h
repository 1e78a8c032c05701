#pragma once

#include "exports/controlcolumns.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QVector>

class QAbstractItemModel;

/// What the control export is made from: every order of a month, and the slots and types that make its columns.
struct ControlMonth {
    struct Segment {
        QString name;
        int position = 0; ///< the key that orders name
    };
    struct Type {
        QString name;
        int typeID = 0;
    };
    struct Order {
        QString pid; ///< as shown: the payroll number or the personal number
        QString personName;
        QDate date;
        int quantity = 0; ///< portions
        int segment = 0; ///< position of the slot
        int typeID = 0;
    };

    QDate day; ///< any of the month
    QString branch; ///< as the selector shows it
    QVector<Segment> segments; ///< in the order of their columns
    QVector<Type> types; ///< in the order of their columns
    QVector<Order> orders; ///< those of one `pid` stand together

    ControlColumns columns() const { return {day.daysInMonth(), segments.size(), types.size()}; }
};

/// The rows of a `SegmentModel`; none for null.
QVector<ControlMonth::Segment> controlSegments(const QAbstractItemModel *rows);
/// The rows of a `TypeModel`; none for null.
QVector<ControlMonth::Type> controlTypes(const QAbstractItemModel *rows);
/// The rows of a `MonthlyOverviewModel`; none for null. Rows of one person share their texts.
QVector<ControlMonth::Order> controlOrders(const QAbstractItemModel *rows);

/// Finds the place of an order in the cross table.
class ControlPlaces {
public:
    /// `month` must outlive the object.
    explicit ControlPlaces(const ControlMonth &month);

    /// The column of an order, or -1 when it has none: a date outside the month, an unknown slot or an unknown type.
    int columnOf(const ControlMonth::Order &order) const;

private:
    const ControlMonth &m_month;
    ControlColumns m_columns;
    QHash<int, int> m_segments; ///< index by position
    QHash<int, int> m_types; ///< index by typeID
};
