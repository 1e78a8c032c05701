#pragma once

#include "exports/controlcolumns.h"

#include <QtGlobal>

#include <vector>

/// The sums over all people in the cross table of the control export, one number for each of its columns. Days count
/// from 1, slots and types from 0.
class ControlSums {
public:
    explicit ControlSums(const ControlColumns &columns);

    /// Adds portions to a column of the days.
    void add(int column, int quantity);

    qint64 ofType(int day, int segment, int type) const;
    qint64 ofSegment(int day, int segment) const;
    /// Over all days.
    qint64 ofSegment(int segment) const;
    /// Whether anything was added on that day, be it 0.
    bool hasOrders(int day) const { return m_hasOrders[std::size_t(day - 1)]; }

private:
    ControlColumns m_columns;
    std::vector<qint64> m_sums; ///< by column, from the first of the days
    std::vector<bool> m_hasOrders; ///< by day, from 0
};
