#include "support/statementlog.h"

#include "support/largefirm.h"

#include <algorithm>

StatementLog::StatementLog(const QSqlDatabase &watched, const QSqlDatabase &admin)
    : m_admin(admin)
    , m_connectionID(firstValue(watched, QStringLiteral("SELECT CONNECTION_ID()")).toULongLong())
{
    execute(m_admin, QStringLiteral("SET GLOBAL log_output = 'TABLE'"));
}

QVector<QByteArray> StatementLog::during(const std::function<void()> &action) const
{
    execute(m_admin, QStringLiteral("TRUNCATE TABLE mysql.general_log"));
    execute(m_admin, QStringLiteral("SET GLOBAL general_log = 1"));
    action();
    execute(m_admin, QStringLiteral("SET GLOBAL general_log = 0"));
    QSqlQuery query = execute(m_admin,
                              QStringLiteral("SELECT argument FROM mysql.general_log WHERE thread_id = %1"
                                             " AND command_type IN ('Query', 'Execute')")
                                  .arg(m_connectionID));
    QVector<QByteArray> statements;
    while (query.next())
        statements.append(query.value(0).toByteArray());
    return statements;
}

QByteArray StatementLog::longestDuring(const std::function<void()> &action) const
{
    const QVector<QByteArray> statements = during(action);
    if (statements.isEmpty())
        qFatal("the page ran no statement");
    return *std::max_element(statements.begin(), statements.end(),
                             [](const QByteArray &a, const QByteArray &b) { return a.size() < b.size(); });
}
