#pragma once

/// Where the cross table of the control export has its columns: two for the person, then for each day of the month one
/// for each service slot and meal type, slot by slot, then one for the person's total. With 3 slots and 5 types the
/// 2nd day begins at column 2 + 15 = 17, and its 2nd slot at column 22.
///
/// Days count from 1, slots, types and columns from 0. Any number of slots and types, none included, makes a table.
class ControlColumns {
public:
    static constexpr int firstOfDays = 2;

    constexpr ControlColumns(int days, int segments, int types)
        : m_days(days)
        , m_segments(segments)
        , m_types(types)
    {
    }

    constexpr int days() const { return m_days; }
    constexpr int segments() const { return m_segments; }
    constexpr int types() const { return m_types; }
    constexpr int perDay() const { return m_segments * m_types; }
    /// Columns of all days.
    constexpr int ofAllDays() const { return m_days * perDay(); }

    /// The first of a day; for the day after the last one, `total`.
    constexpr int day(int number) const { return firstOfDays + (number - 1) * perDay(); }
    /// The first of a slot on a day.
    constexpr int segment(int dayNumber, int index) const { return day(dayNumber) + index * m_types; }
    constexpr int type(int dayNumber, int segmentIndex, int index) const
    {
        return segment(dayNumber, segmentIndex) + index;
    }
    /// The last one of the table.
    constexpr int total() const { return firstOfDays + ofAllDays(); }

private:
    int m_days;
    int m_segments;
    int m_types;
};
