#pragma once

#include "support/testdatabase.h"

#include <QDate>
#include <QDateTime>
#include <QStringList>

/// Fills a test database with a canteen, as a second client. Every function gives the key of its new row.
class BoardData {
public:
    explicit BoardData(const TestDatabase &database)
        : m_database(database)
    {
    }

    uint segment(const QString &name, int position) const
    {
        return insert(QStringLiteral("via_segments (name, start, stop, position)"),
                      {quoted(name), "'11:00'", "'13:00'", number(position)});
    }
    uint type(const QString &name, int position) const
    {
        return insert(QStringLiteral("via_types (name, position)"), {quoted(name), number(position)});
    }
    uint supplier(const QString &shortcut) const
    {
        return insert(QStringLiteral("via_suppliers (name, shortcut)"), {"'supplier'", quoted(shortcut)});
    }
    uint food(const QString &name, uint type, uint supplier) const
    {
        return insert(QStringLiteral("via_foods (typeID, supplierID, name, description, price)"),
                      {number(type), number(supplier), quoted(name), "''", "4.5"});
    }
    /// `branch` 0 is the menu without a branch.
    uint item(uint food, uint segment, QDate date, int locked = 0, uint branch = 0, int limit = 0) const
    {
        return insert(QStringLiteral("via_orderables (foodID, bid, segmentID, date, position, price, `limit`, locked)"),
                      {number(food), branch == 0 ? QStringLiteral("NULL") : number(branch), number(segment),
                       quoted(date.toString(Qt::ISODate)), "1", "4.5", number(limit), number(locked)});
    }
    uint order(uint item, uint person, int quantity) const
    {
        return insert(QStringLiteral("via_orders (orderableID, uid, quantity)"),
                      {number(item), number(person), number(quantity)});
    }
    /// The person's label in the lists is "[pid] surname name"; an invalid `end` is an open employment.
    uint person(int pid, const QString &surname, const QString &name, QDate begin = QDate(2000, 1, 3),
                QDate end = QDate()) const
    {
        return insert(QStringLiteral("people (pid, surname, name, `begin`, `end`)"),
                      {number(pid), quoted(surname), quoted(name), number(begin.startOfDay().toSecsSinceEpoch()),
                       end.isValid() ? number(end.startOfDay().toSecsSinceEpoch()) : QStringLiteral("0")});
    }
    uint branch(const QString &name) const { return insert(QStringLiteral("branches (name)"), {quoted(name)}); }
    void personInBranch(uint person, uint branch) const
    {
        m_database.exec(QStringLiteral("INSERT INTO brape (uid, bid) VALUES (%1, %2)").arg(person).arg(branch));
    }
    /// Deletes every row, a good deal faster than `TestDatabase::clear`; the keys go on from where they were.
    void clear() const
    {
        m_database.exec(QStringLiteral("SET foreign_key_checks = 0"));
        for (const char *table : {"via_orders", "via_orderables", "via_foods", "via_types", "via_suppliers",
                                  "via_segments", "people", "branches", "brape", "bradm", "admins_people", "vars"})
            m_database.exec(QStringLiteral("DELETE FROM ") + QLatin1String(table));
        m_database.exec(QStringLiteral("SET foreign_key_checks = 1"));
    }
    void setting(const QString &name, const QString &value) const
    {
        m_database.exec(QStringLiteral("REPLACE INTO vars VALUES (%1, %2)").arg(quoted(name), quoted(value)));
    }

private:
    uint insert(const QString &columns, const QStringList &values) const
    {
        m_database.exec(QStringLiteral("INSERT INTO ") + columns + " VALUES (" + values.join(", ") + ')');
        return m_database.value(QStringLiteral("SELECT LAST_INSERT_ID()")).toUInt();
    }
    template<typename Number> static QString number(Number value) { return QString::number(value); }
    static QString quoted(QString text)
    {
        text.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("''"));
        return QLatin1Char('\'') + text + QLatin1Char('\'');
    }

    const TestDatabase &m_database;
};
