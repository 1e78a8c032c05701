#pragma once

#include "support/testdatabase.h"

/// A small canteen with fixed keys, put into a test database as a second client.
///
/// Branches 1 "Výroba", 2 "Sklad", 30 "Čerpadlá"; administrator 7 has 1 and 30. Supplier 1 "Jedáleň" delivers to all
/// branches and has all details, 2 "Pekáreň" and 3 "Bistro" deliver to branch 1 and have none. Control mails: 1
/// "vsetci@firma.sk" for all branches, 2 "vyroba@firma.sk" and 3 "sef@firma.sk" for branch 1.
class SupplierData {
public:
    explicit SupplierData(const TestDatabase &database)
        : m_database(database)
    {
        m_database.clear();
        exec("INSERT INTO branches VALUES (1, 'Výroba'), (2, 'Sklad'), (30, 'Čerpadlá')");
        exec("INSERT INTO bradm (aid, bid) VALUES (7, 1), (7, 30)");
        exec("INSERT INTO via_suppliers (supplierID, name, description, deadline, shortcut, daysto) VALUES "
             "(1, 'Jedáleň', 'teplé jedlá', '09:05:00', 'JED', 2), (2, 'Pekáreň', NULL, NULL, NULL, 0), "
             "(3, 'Bistro', NULL, NULL, NULL, 0)");
        exec("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL), (2, 1), (3, 1)");
        exec(
            "INSERT INTO via_suppliermails (supplierMailID, supplierID, mail) VALUES (11, 1, 'objednavky@jedalen.sk'), "
            "(12, 1, 'kuchyna@jedalen.sk'), (13, 2, 'pec@pekaren.sk')");
        exec("INSERT INTO via_branchmails (branchMailID, bid, mail) VALUES (1, NULL, 'vsetci@firma.sk'), "
             "(2, 1, 'vyroba@firma.sk'), (3, 1, 'sef@firma.sk')");
        exec("INSERT INTO via_promailsdelay (proMailDelayID, supplierID, sendtime, daysto) VALUES "
             "(21, 1, '16:00:00', 1), (22, 1, '08:30:00', 0)");
    }

    void exec(const char *statement) const { m_database.exec(QString::fromUtf8(statement)); }
    /// The rows of a table or of an expression behind SELECT, as text.
    QStringList rows(const char *query) const
    {
        return m_database.rows(QStringLiteral("SELECT ") + QString::fromUtf8(query));
    }
    QStringList links() const { return rows("supplierID, bid FROM via_supplierbranch ORDER BY supplierID, bidKey"); }
    QStringList branchMails() const { return rows("branchMailID, bid, mail FROM via_branchmails ORDER BY 1"); }
    QStringList supplierMails() const
    {
        return rows("supplierID, mail FROM via_suppliermails ORDER BY supplierMailID");
    }
    QStringList times() const
    {
        return rows("proMailDelayID, supplierID, TIME_FORMAT(sendtime, '%H:%i:%s'), daysto FROM via_promailsdelay "
                    "ORDER BY 1");
    }
    QStringList suppliers() const
    {
        return rows("supplierID, name, description, TIME_FORMAT(deadline, '%H:%i:%s'), shortcut, daysto FROM "
                    "via_suppliers ORDER BY 1");
    }

private:
    const TestDatabase &m_database;
};

/// Makes the database refuse changes of one kind ("INSERT", "DELETE") of a table while it lives; its word is "refused".
/// With a `condition` on the row only those.
class Refusal {
public:
    Refusal(const TestDatabase &database, const QString &kind, const QString &table,
            const QString &condition = QStringLiteral("TRUE"))
        : m_database(database)
        , m_name(QStringLiteral("refuse_%1_%2").arg(kind, table))
    {
        m_database.exec(
            QStringLiteral("CREATE TRIGGER %1 BEFORE %2 ON %3 FOR EACH ROW IF %4 THEN SIGNAL SQLSTATE '45000' "
                           "SET MESSAGE_TEXT = 'refused'; END IF")
                .arg(m_name, kind, table, condition));
    }
    ~Refusal() { m_database.exec(QStringLiteral("DROP TRIGGER ") + m_name); }
    Q_DISABLE_COPY(Refusal)

private:
    const TestDatabase &m_database;
    const QString m_name;
};
