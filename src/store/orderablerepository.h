#pragma once

#include <QDate>
#include <QList>
#include <QObject>
#include <QSqlDatabase>
#include <QString>

class SqlOperation;

/// One menu item: a food offered on one day in one service slot, to one branch or to all.
struct OrderableRecord {
    quint32 orderableID = 0; ///< key; 0 while new
    quint32 foodID = 0;
    quint32 bid = 0; ///< branch; 0 = all branches, NULL in the table
    quint32 segmentID = 0;
    QDate date;
    quint32 position = 0; ///< order within the slot, from 1
    double price = 0; ///< fixed on the item, independent of later changes of the food's price
    quint32 limit = 0; ///< maximum of portions, 0 = no limit
    quint32 locked = 0; ///< 0 open, 1 locked and open for orders, 2 closed for good; set by `loadOrderablesByDate` only
};

/// Writes and reads menu items. `bid` 0 in an argument or record stands for the items of all branches, which are rows
/// of their own (NULL in the table): an operation with `bid` 0 touches no item of a branch, and one with a branch none
/// of those, except where it says so.
///
/// Every operation that fails writes one critical line and shows a box titled "Chyba databázy"; a change then gives
/// false, a load the defaults or what it had read. The log tags of the two date operations name another class; log
/// watchers know them so.
class OrderableRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit OrderableRepository(QSqlDatabase db, QObject *parent = nullptr);

    /// The item with this key, without `limit` and `locked`, which stay 0; defaults for a missing key.
    OrderableRecord loadOrderable(uint orderableID);
    /// The items of a day, those of branch `bid` and those for all branches together. With `bid` 0 only the latter.
    /// `limit` stays 0.
    QList<OrderableRecord> loadOrderablesByDate(QDate date, uint bid);
    /// Number of service slots, 0 on failure.
    int numOfSegments();
    /// Number of meal types, 0 on failure.
    int numOfTypes();
    /// The foods on a slot of a day, of all branches, by descending position.
    QList<uint> loadFoodIDs(QDate date, uint segmentID);
    /// Always true, whatever stands on the slot: the food import relies on it and so never puts a row on the menu. It
    /// still reads the slot's foods, and reports a failure of that.
    bool orderableExists(OrderableRecord orderable);
    /// Adds a menu item under a new key; `orderableID` and `locked` are not used, a new item is open.
    bool addOrderable(OrderableRecord orderable);
    /// Changes position and limit, and nothing else, of the item with the record's key.
    /// Logs "id:  KEY  updating orderable...".
    bool updateOrderable(OrderableRecord orderable);
    /// Deletes an item; the database refuses while it has orders. Logs "id:  KEY  deleting orderable...".
    bool deleteOrderable(uint orderableID);
    /// Deletes the items of one slot of one day one by one. A refused delete shows its own box and the rest go on, so a
    /// slot with orders stays partly cleared. The result is that of reading the items, not of the deletes.
    bool deleteAllOrderables(QDate date, uint segmentID, uint bid);
    /// Locks or unlocks (1 or 0) all items of one slot of one day.
    bool updateLock(QDate date, uint segmentID, uint bid, bool locked);
    /// The earliest day with an item; invalid when there is none. Logs the date.
    QDate loadFirstDate();
    /// The latest day with an item of `bid`; invalid when there is none.
    QDate loadLastDate(uint bid);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;
    int count(const QString &sql, const char *tag);

    QSqlDatabase m_db;
};
