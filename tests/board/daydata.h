#pragma once

#include "support/testdatabase.h"

#include <QDate>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

/// A small canteen with fixed keys, put into a test database as a second client.
///
/// Types by position: 1 "Polievky", 2 "Hlavné jedlá", 3 "Dezerty". Supplier 1 "DOD" delivers to all branches, 2 "IBA"
/// to branch 5. Foods 11 to 13 are soups, 21 to 24 main dishes, 31 a dessert, all of supplier 1; 25 is of supplier 2.
/// Food F is named "jedlo F". Slot 1 "Obed". Persons 7 "[77] Nováková Žofia" and 8.
class DayData {
public:
    explicit DayData(const TestDatabase &database)
        : m_database(database)
    {
        // The keys go on where they were, which costs far less than emptying the tables for good.
        for (const char *table : {"via_orders", "via_orderables", "via_foods", "via_supplierbranch", "via_suppliers",
                                  "via_types", "via_segments", "people", "vars"})
            m_database.exec(QStringLiteral("DELETE FROM ") + QLatin1String(table));
        exec("ALTER TABLE via_orderables AUTO_INCREMENT = 1000");
        // Characters of four bytes pass only over a connection that asks for them, which is the host's to do.
        exec("SET NAMES utf8mb4");
        QSqlQuery(m_database.db()).exec(QStringLiteral("SET NAMES utf8mb4"));
        exec(
            "INSERT INTO people (uid, pid, surname, name) VALUES (7, 77, 'Nováková', 'Žofia'), (8, 78, 'Kráľ', 'Ján')");
        exec("INSERT INTO via_types (typeID, name, position) VALUES (91, 'Polievky', 1), (92, 'Hlavné jedlá', 2), (93, "
             "'Dezerty', 3)");
        exec(
            "INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Dodávateľ', 'DOD'), (2, 'Iba', 'IBA')");
        exec("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL), (2, 5)");
        exec("INSERT INTO via_segments (segmentID, name, start, stop, position) VALUES (1, 'Obed', '11:00', '13:00', "
             "1)");
        exec(
            "INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (11, 91, 1, 'jedlo 11', 1.5), (12, "
            "91, 1, 'jedlo 12', 1.5), (13, 91, 1, 'jedlo 13', 1.5), (21, 92, 1, 'jedlo 21', 4.5), (22, 92, 1, 'jedlo "
            "22', 4.5), (23, 92, 1, 'jedlo 23', 4.5), (24, 92, 1, 'jedlo 24', 4.5), (25, 92, 2, 'jedlo 25', 4.5), (31, "
            "93, 1, 'jedlo 31', 2)");
    }

    static QDate day() { return QDate(2031, 5, 14); }

    void exec(const char *statement) const { m_database.exec(QString::fromUtf8(statement)); }
    /// Puts a food on the menu of slot 1, under the key 100 + food.
    void item(int food, int position, int locked = 0, int limit = 0, double price = 3.5, int branch = 0,
              QDate date = day()) const
    {
        m_database.exec(
            QStringLiteral("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, "
                           "price, `limit`, locked) VALUES (%1, %2, NULLIF(%3, 0), 1, '%4', %5, %6, %7, %8)")
                .arg(100 + food)
                .arg(food)
                .arg(branch)
                .arg(date.toString(Qt::ISODate))
                .arg(position)
                .arg(price)
                .arg(limit)
                .arg(locked));
    }
    void order(int food, int person, int quantity) const
    {
        m_database.exec(
            QStringLiteral("INSERT INTO via_orders (orderableID, uid, quantity, ordered) VALUES (%1, %2, %3, 'before')")
                .arg(100 + food)
                .arg(person)
                .arg(quantity));
    }
    /// The name as typed; quotes and backslashes are the caller's business.
    void rename(int food, const QString &name) const
    {
        QString quoted = name;
        quoted.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("''"));
        m_database.exec(
            QStringLiteral("UPDATE via_foods SET name='%1' WHERE foodID=").replace(QLatin1String("%1"), quoted)
            + QString::number(food));
    }
    /// "key food position price limit" of all items, by position; the key is "new" for what `item` did not make.
    QStringList items() const
    {
        return m_database.rows(QStringLiteral(
            "SELECT CONCAT_WS(' ', IF(orderableID < 1000, orderableID, 'new'), foodID, position, price, `limit`) FROM "
            "via_orderables ORDER BY date, position, orderableID"));
    }
    /// The module's connection before it was opened.
    QSqlDatabase closedConnection() const
    {
        return QSqlDatabase::cloneDatabase(m_database.db(), QStringLiteral("closed"));
    }
    /// "item person quantity" of all orders.
    QStringList orders() const
    {
        return m_database.rows(QStringLiteral(
            "SELECT CONCAT_WS(' ', orderableID, uid, quantity) FROM via_orders ORDER BY orderableID, uid"));
    }

private:
    const TestDatabase &m_database;
};

/// Names that a careless program shows or stores as something else.
inline QStringList hostileNames()
{
    return {QStringLiteral("O'Brien \"guláš\" \\ \\n"), QStringLiteral("100% %1 %2 %3 %s"),
            QStringLiteral("<b>tučné</b> & <img src=x>"), QStringLiteral("\U0001F372 polievka"),
            QString(10000, QLatin1Char('x'))};
}
