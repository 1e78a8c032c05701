#pragma once

#include "models/sqllistmodel.h"

/// The service slots by position. Columns: 0 segmentID, 1 name, 2 start (a time), 3 position. The end of a slot is not
/// in it.
class SegmentModel : public SqlListModel {
    Q_OBJECT

public:
    /// Empty until the first `refresh()`.
    explicit SegmentModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Runs the query again and sets the four headers. A failure is logged ("SegmentModel - setQuery ERROR: ...") and
    /// leaves the model empty.
    void refresh();
};
