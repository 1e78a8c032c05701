#pragma once

#include "models/sqllistmodel.h"

/// The catalogue of foods, in the order of the database, one row a food.
///
/// The pictures are not part of the load, since a list of ten thousand foods must not cost their megabytes: the cell of
/// the picture column reads its bytes from the database when it is asked for. `record()` has no picture.
class FoodModel : public SqlListModel {
    Q_OBJECT

public:
    /// `Picture` is the image's bytes, `SupplierId` nothing for a food without a supplier.
    enum Column : int { FoodId, TypeId, Name, Description, Picture, Price, SupplierId };

    /// Empty until the first `refresh()`.
    explicit FoodModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Runs the query again and sets the seven headers. A failure is logged ("FoodModel - setQuery ERROR: ...") and
    /// leaves the model empty.
    void refresh();

    /// The cell's value. Display and edit role of the picture column run a statement each time; a failure is logged as
    /// that of `refresh` is and gives no picture.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QVariant picture(uint foodID) const;
};
