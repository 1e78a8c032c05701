#pragma once

#include <QByteArray>
#include <QDate>
#include <QObject>
#include <QSqlDatabase>
#include <QString>

#include <memory>

class QStandardItemModel;
class SqlOperation;

/// One food of the catalogue.
struct FoodRecord {
    quint32 foodID = 0; ///< key; 0 in a new food, unless the caller wants this exact key
    quint32 typeID = 0; ///< key of the meal type
    quint32 supplierID = 0; ///< key of the supplier; 0 = none, stored as NULL
    QString name;
    QString description;
    QByteArray picture; ///< image bytes, or nothing
    double price = 0;
    bool hasPicture = false; ///< whether adding and updating write `picture`; a load does not set it
};

/// Foods of the catalogue, and the menu grids made of them.
///
/// Every operation that fails writes one critical line "FoodRepository(...) - SQL ERROR: ..." and shows a box titled
/// "Chyba databázy"; a change then gives false, a load defaults, a grid the rows read so far. A grid is never null.
///
/// A grid is a new `QStandardItemModel` of text cells without a parent, owned by the caller, in which an SQL NULL is
/// the empty text. Its columns are listed in session/menucolumns.h. A heading row, one for each meal type (also for a
/// type without any food), has the text "0" as its food. The type column holds the type's position, not its key; it
/// binds a heading to its meals. `bid` 0 stands for the items of all branches; a branch's items and those are never
/// mixed. Rows are in the order of the type's position and then of the item's position, which the server compares as
/// text: "10" stands before "2". The connection must run without ONLY_FULL_GROUP_BY.
class FoodRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called. Between two calls of
    /// `addFood`, or of `updateFood`, it must stay the same one: the statements stay prepared on it.
    explicit FoodRepository(QSqlDatabase db, QObject *parent = nullptr);
    ~FoodRepository() override;
    Q_DISABLE_COPY(FoodRepository)

public slots:
    /// The food with this key, or a record of defaults. `hasPicture` stays false: a caller that writes the record back
    /// sets it itself.
    FoodRecord loadFood(uint foodID);
    /// The whole catalogue as a new model, owned by the caller, with no headers and seven columns of text: 0 food, 1
    /// type key, 2 supplier, 3 the supplier's shortcut, a blank and the name (without a supplier just the blank and the
    /// name; not editable), 4 description, 5 picture, 6 price.
    QStandardItemModel *loadAllFood();
    /// Adds a food. With a key in the record it is added under that key, or under a new one if that fails, say because
    /// the key is taken: the import relies on it. Without a key, `picture` is written only with `hasPicture`.
    bool addFood(FoodRecord food);
    /// Rewrites the food with the record's key, its picture only with `hasPicture`. True also when no row has that key.
    /// Logs "id:  KEY  updating food...".
    bool updateFood(FoodRecord food);
    /// Deletes a food. The database refuses while menu items refer to it. Logs "id:  KEY  deleting food...".
    bool deleteFood(uint foodID);
    /// The highest key, 0 for an empty table or a failure: the key of a food just added. Nothing guards against another
    /// workstation that adds one in between.
    uint loadLastfoodID();
    /// The key of the branch of exactly this name, 0 (all branches) when there is none. A failure is logged as
    /// "BranchModel - adminBranches ERROR: [CODE]: ...", the tag that log watchers know, without a box.
    int loadBranchID(QString name);

    /// One service slot of one day with all foods that may be offered to the branch, for editing its menu:
    /// `MenuColumn`. A food on the menu carries its menu values; the other foods of the suppliers linked to the branch
    /// carry the catalogue price and empty menu columns, and stand ahead of their type's heading. `MenuColumn::Total`
    /// of a food counts all persons' portions, of a heading it is their sum. A limit of 0 is an empty cell; the limit
    /// is editable except on headings, name and total never.
    QStandardItemModel *loadDayMenu(QDate date, uint segmentID, uint bid);
    /// The menus from three days before `date` to three days after it, all slots: `MenuColumn`. The total is that of
    /// person `uid`, or of all persons for -1; on a heading it is one blank. A food without a supplier has an empty
    /// name. Name and total can be neither edited nor selected, the limit cannot be edited.
    QStandardItemModel *loadMenuWidgetMenu(QDate date, uint bid, int uid = -1);
    /// One person's order form for one slot: `PersonMenuColumn`. All foods of the catalogue, those off the menu with
    /// empty menu columns. Money is a number with two decimals, a blank and the currency symbol of the default locale;
    /// headings carry the sums of their type, and the last row, "Celkom", those of all types. On failure there are no
    /// rows.
    QStandardItemModel *loadPersonDayMenu(QDate date, uint segmentID, int uid, uint bid);
    /// The locked items of seven days from `date`, for print: `WeekMenuColumn`. Service slots are the headings here,
    /// each with the day; a slot of a day without a locked item is left out. Only a failure of the seventh day is
    /// reported.
    QStandardItemModel *loadWeekMenu(QDate date, uint bid);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;

    QSqlDatabase m_db;
    // Kept prepared as long as they succeed: preparing is half of what a record of an import costs.
    std::unique_ptr<SqlOperation> m_adding;
    std::unique_ptr<SqlOperation> m_updating;
};
