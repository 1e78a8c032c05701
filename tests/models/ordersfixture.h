#pragma once

#include "support/testdatabase.h"

#include <QDate>

/// Rows for the tests of the order lists: two slots, one supplier, foods 1 and 2, and two helpers for items and orders.
class OrdersFixture {
public:
    void reset() const
    {
        m_database.clear();
        m_database.exec(
            QStringLiteral("INSERT INTO via_types VALUES (1, 'Polievka', 1, 1), (2, 'Hlavné jedlo', 2, 0)"));
        m_database.exec(
            QStringLiteral("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Jedáleň', 'J')"));
        m_database.exec(
            QStringLiteral("INSERT INTO via_foods (foodID, typeID, supplierID, name) VALUES "
                           "(1, 1, 1, 'Fazuľová'), (2, 2, 1, '<i>Guláš</i> %1'), (3, 2, NULL, 'Bez dodávateľa')"));
        m_database.exec(QStringLiteral("INSERT INTO via_segments VALUES (1, 'Obed', '11:00:00', '13:00:00', 2), "
                                       "(2, 'Večera', '17:00:00', '19:00:00', 1)"));
    }

    void addPerson(int uid, int pid, const QString &surname, const QString &name, const QString &pamId = QString(),
                   int status = 1) const
    {
        m_database.exec(
            QStringLiteral("INSERT INTO people (uid, pid, surname, name, pamId, status, title, title2) VALUES (%1, "
                           "%2, '%3', '%4', %5, %6, 'Ing.', 'PhD.')")
                .arg(QString::number(uid), QString::number(pid), surname, name,
                     pamId.isNull() ? QStringLiteral("NULL") : QLatin1Char('\'') + pamId + QLatin1Char('\''),
                     QString::number(status)));
    }

    /// A menu item; `bid` 0 stands for no branch.
    void addItem(int orderableID, int foodID, const QDate &date, double price, int segmentID = 1, int bid = 0,
                 int position = 1) const
    {
        m_database.exec(
            QStringLiteral("INSERT INTO via_orderables (orderableID, foodID, date, price, segmentID, bid, position) "
                           "VALUES (%1, %2, '%3', %4, %5, NULLIF(%6, 0), %7)")
                .arg(orderableID)
                .arg(foodID)
                .arg(date.toString(Qt::ISODate))
                .arg(price)
                .arg(segmentID)
                .arg(bid)
                .arg(position));
    }

    void addOrder(int orderableID, int uid, int quantity, const QString &ordered = QStringLiteral("ZEP-adminID: 1, x"),
                  const QString &delivered = QStringLiteral("NULL")) const
    {
        m_database.exec(
            QStringLiteral("INSERT INTO via_orders (orderableID, uid, quantity, ordered, delivered) VALUES (%1, %2, "
                           "%3, '%4', %5)")
                .arg(QString::number(orderableID), QString::number(uid), QString::number(quantity), ordered,
                     delivered));
    }

    const TestDatabase &database() const { return m_database; }
    QSqlDatabase db() const { return m_database.db(); }

private:
    TestDatabase m_database;
};
