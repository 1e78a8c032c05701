#pragma once

#include "models/sqllistmodel.h"

class QStandardItemModel;

/// The allergens in the order of the database. Columns: 0 alergenID, 1 title, 2 description.
class AlergenModel : public SqlListModel {
    Q_OBJECT

public:
    /// Empty until the first `refresh()`.
    explicit AlergenModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Loads all allergens and sets the three headers. A failure is logged ("AlergenModel - setQuery ERROR: ...") and
    /// leaves the model empty.
    void refresh();

    /// The titles of a food's allergens, in the order of the database. The model itself holds them afterwards, in the
    /// same columns. A failure is logged ("AlergenModel - foodalergen load ERROR: ...") and gives no titles.
    QStringList loadFoodAlergens(uint foodID);

    /// Every allergen by its key with a mark whether the food has it, as a new model owned by the caller: column 0 is
    /// the title, checkable, checked for the food's own; column 1 is the alergenID as text. A food of key 0 has none.
    /// A failure is logged as above and gives no rows.
    QStandardItemModel *checkableAlergens(uint foodID);

private:
    QStringList headers() const;
};
