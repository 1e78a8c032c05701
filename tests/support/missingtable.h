#pragma once

#include "support/testdatabase.h"

/// Takes a table away while it lives, so that statements on it fail with an error that can be told word for word.
class MissingTable {
public:
    MissingTable(const TestDatabase &database, const QString &table)
        : m_database(database)
        , m_table(table)
    {
        m_database.exec(QStringLiteral("RENAME TABLE `%1` TO `%1_away`").arg(m_table));
    }
    ~MissingTable() { m_database.exec(QStringLiteral("RENAME TABLE `%1_away` TO `%1`").arg(m_table)); }
    Q_DISABLE_COPY(MissingTable)

    /// The error's text as the driver gives it.
    QString error() const
    {
        return QStringLiteral("Table '%1.%2' doesn't exist QMYSQL: Unable to execute query")
            .arg(m_database.name(), m_table);
    }

private:
    const TestDatabase &m_database;
    const QString m_table;
};
