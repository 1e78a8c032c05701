#pragma once

#include "models/sqllistmodel.h"

/// The catalogue of foods, in the order of the database. Columns: 0 foodID, 1 typeID, 2 name, 3 description, 4 picture
/// (the image's bytes, for the whole catalogue), 5 price, 6 supplierID (NULL without a supplier).
class FoodModel : public SqlListModel {
    Q_OBJECT

public:
    /// Empty until the first `refresh()`.
    explicit FoodModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Runs the query again and sets the seven headers. A failure is logged ("FoodModel - setQuery ERROR: ...") and
    /// leaves the model empty.
    void refresh();
};
