#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>

class SqlOperation;

/// One allergen.
struct AlergenRecord {
    quint32 alergenID = 0; ///< key, also the number shown to users in exports; 0 while new
    QString title;
    QString description;
};

/// Writes and reads single allergens and their links to foods. Lists of allergens are the list models' affair.
///
/// Every operation that fails writes one critical line "AlergenRepository(...) - SQL ERROR: ..." and shows a box titled
/// "Chyba databázy"; a change then gives false.
class AlergenRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit AlergenRepository(QSqlDatabase db, QObject *parent = nullptr);

public slots:
    /// The allergen with this key. A missing key and a failure leave the record that this object loaded last, and that
    /// is what comes back (an empty record if there was none): callers rely on the record outliving the call.
    AlergenRecord loadAlergen(uint alergenID);
    /// Adds an allergen under a new key; `alergenID` is not used.
    bool addAlergen(AlergenRecord alergen);
    /// Rewrites title and description of the allergen with the record's key. True also when no row has that key.
    bool updateAlergen(AlergenRecord alergen);
    /// Deletes an allergen. The database refuses while foods are linked to it.
    bool deleteAlergen(uint alergenID);
    /// Links an allergen to a food. True and without effect when the link is there already.
    bool addFoodAlergen(uint foodID, uint alergenID);
    /// Removes one link; true also when there was none.
    bool deleteFoodAlergen(uint foodID, uint alergenID);
    /// Removes all links of a food.
    bool deleteAllFoodAlergen(uint foodID);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;

    QSqlDatabase m_db;
    AlergenRecord m_alergen;
};
