#pragma once

#include "store/positions.h"

class QListView;
class QSqlDatabase;
class QWidget;
class SegmentModel;
class SegmentRepository;
struct SegmentRecord;

/// What the settings page and the two slot dialogs share: the list of service slots, and the writes that keep the
/// slots' positions running from 1 to n without gaps.
namespace SegmentEditing {

/// When the slots behind a deleted one move up by one place.
enum class Renumbering {
    AfterSuccess, ///< only if the slot is gone
    Always, ///< also when the database refused the deletion, which throws the slot and the next one together
};

enum class Deletion {
    Declined, ///< not confirmed, or `parent` went away while the question was open: nothing was written
    Refused, ///< the repository has shown its box
    Done,
};

/// Shows the names of `model` (column 1) in `list`, one of them selectable. To be called again after every load of the
/// model: a list without columns, as a failed load leaves it, falls back to the keys of column 0.
void showNames(QListView *list, SegmentModel *model);

/// Runs the moves in the order given. Each one towards the end (`to` above `from`) is logged first, "posuvam segment s
/// poziciou" with `from`. A move that fails shows the repository's box and the next goes on.
void movePositions(SegmentRepository &repository, const QVector<PositionMove> &moves);

/// Asks modally to `parent` whether to delete `segment` out of `count` slots, deletes it and closes the gap. A record
/// without a position, as the load of a slot that is gone gives it, leaves no gap to close. After `Declined` a caller
/// that is a part of `parent` must not touch itself any more.
Deletion askAndDelete(QWidget *parent, const QSqlDatabase &db, const SegmentRecord &segment, int count,
                      Renumbering renumbering);

} // namespace SegmentEditing
