#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>

/// One person's order of one menu item.
struct OrderRecord {
    quint32 orderID = 0; ///< not used when writing
    quint32 orderableID = 0; ///< the menu item
    quint32 uid = 0; ///< the person who eats
    int quantity = 0; ///< portions
    QString ordered; ///< audit text: who entered the order and when; no code parses it
    QString delivered; ///< not used when writing
};

/// Writes a person's orders and tells how many portions of a menu item are free. An order is never updated: the caller
/// deletes and adds. Check and write are separate steps without a lock, so two workstations may both take the last
/// portion; a limit is a planning figure.
///
/// The class has no meta-object and shows no box: a failure is one critical line "OrderRepository(...) - SQL ERROR:
/// ..." and the result, and the caller tells the user.
class OrderRepository : public QObject {
public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit OrderRepository(QSqlDatabase db, QObject *parent = nullptr);

    /// Adds the order with `delivered` NULL. Logs "Adding order with uid : UID".
    bool addOrder(OrderRecord order);
    /// Removes all orders of the record's person on its item; true also when there were none.
    bool deleteOrder(OrderRecord order);
    /// Sets `limit` to the item's limit (0 = none, and also for a missing item) and `available` to limit -
    /// order.quantity - portions of all other persons: what stays free after this order, negative when too much is
    /// wanted. The person's own earlier order does not count, as it is about to be replaced. Without a limit
    /// `available` means nothing. On failure gives false, with -100 in `available` and `limit` untouched.
    bool checkOrderableLimit(OrderRecord order, int &available, int &limit);
    /// The name of an item's food, empty for a missing item.
    QString getFoodName(uint orderableID);

private:
    QSqlDatabase m_db;
};
