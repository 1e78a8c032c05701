#pragma once

#include <QVector>

/// One step that makes room or closes a gap: every row at position `from` gets position `to`, a neighbour of it.
struct PositionMove {
    int from;
    int to;

    bool operator==(const PositionMove &other) const { return from == other.from && to == other.to; }
};

/// The order of meal types and of service slots runs from 1 to n without gaps. The database does not keep it so; the
/// dialogs do, by moving the other rows one place before they write their own record. The moves must run in the order
/// given: each goes to a place that has just become free, so that no two rows are ever thrown together.
///
/// Example: 4 moves to 2 in a list of 5: 4 to 5, 3 to 4, 2 to 3. The first step puts the moving row on top of the one
/// at 5; writing its record afterwards by its key takes it to 2 and leaves the others at 1 to 5.
namespace Positions {

/// Room for a new record at `target` (1 to `count` + 1) in a list of `count`: the rows from `target` on move one place
/// back, the last first.
QVector<PositionMove> makeRoom(int target, int count);

/// What moves when the record at `from` goes to `target`. Towards the end, the rows behind it up to the target move one
/// place forward. In every other case the rows from `from` up to the target move one place back, the moving record with
/// them; staying in place is such a case too, a step back that the record's own write undoes.
QVector<PositionMove> shift(int from, int target);

/// Closes the gap of the record deleted at `position` from a list that had `count`: all behind it move one place
/// forward.
QVector<PositionMove> closeGap(int position, int count);

} // namespace Positions
