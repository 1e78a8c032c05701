#pragma once

#include "store/alergenrepository.h"
#include "store/foodrepository.h"
#include "store/orderablerepository.h"

#include <QCoreApplication>
#include <QHash>
#include <QSqlDatabase>
#include <QString>

class FoodModel;
class QAbstractItemModel;
class QTextStream;
class SegmentModel;
class SupplierModel;
class TypeModel;

/// One run of the import of foods from a comma-separated file (format: `Csv`).
///
/// The columns by position: 1 supplier, 2 meal type, 3 food, 4 description, 5 price with a decimal point or comma,
/// 7 date ("yyyy-MM-dd"), 8 service slot, 9 branch. Columns 0 and 6 (food and allergen keys of the export) are never
/// read. The first record is the header and is thrown away unread.
///
/// A food is known by its name alone. A new one is added, a known one overwritten; either is left without allergens and
/// with the picture it had. A bad record is told in the summary and never stops the run; there is no transaction, what
/// was written stays. A failed statement shows its repository's box.
///
/// A record with a date or slot is checked for the menu too, but nothing is ever put on it, because
/// `OrderableRepository::orderableExists` says of every food that it is there. That is kept on purpose; such records
/// count as duplicates.
class FoodImport {
    Q_DECLARE_TR_FUNCTIONS(FoodImport)

public:
    /// Names are looked up in `suppliers`, `types` and `foods` as they stand, keys in column 0. The models outlive the
    /// import. `segments` is reloaded for every record of the menu, `foods` after the first record and at the end.
    FoodImport(const QSqlDatabase &db, const SupplierModel &suppliers, const TypeModel &types, FoodModel *foods,
               SegmentModel *segments);

    /// Reads all records of `in`.
    void run(QTextStream &in);

    /// What the user is told after the run: the counts and one line for each fault.
    QString summary() const;

private:
    using Keys = QHash<QString, uint>;

    static Keys keysByName(const QAbstractItemModel &model, int nameColumn);
    void readRecord(const QStringList &record);
    uint writeFood(FoodRecord food);
    void writeMenuItem(const QStringList &record, const FoodRecord &food, uint foodID);
    uint findSegment(const QString &name);
    void complain(const QString &fault);

    FoodRepository m_foodRepository;
    AlergenRepository m_alergenRepository;
    OrderableRepository m_orderableRepository;
    const Keys m_suppliers;
    const Keys m_types;
    Keys m_foodIDs;
    FoodModel *m_foods;
    SegmentModel *m_segments;

    qint64 m_row = 2; ///< number of the record, the header being 1
    int m_foodsWritten = 0;
    int m_foodsDuplicated = 0;
    int m_foodsFailed = 0;
    int m_itemsWritten = 0;
    int m_itemsDuplicated = 0;
    int m_itemsFailed = 0;
    QString m_faults;
};
