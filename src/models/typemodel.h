#pragma once

#include "models/sqllistmodel.h"

/// The meal types by position. Columns: 0 typeID, 1 name, 2 position.
class TypeModel : public SqlListModel {
    Q_OBJECT

public:
    /// Loads at once.
    explicit TypeModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Runs the query again and sets the headers of columns 0 and 1. A failure is logged ("TypeModel - setQuery ERROR:
    /// ...") and leaves the model empty.
    void refresh();
};
