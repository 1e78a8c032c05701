#include "store/sqloperation.h"

#include "session/sqlfailure.h"

#include <QSqlDatabase>

QVariant sqlString(const QString &text)
{
    return text.isNull() ? QVariant(QLatin1String("")) : QVariant(text);
}

QVariant sqlKeyOrNull(quint32 key)
{
    return key == 0 ? QVariant(QVariant::UInt) : QVariant(key);
}

SqlOperation::SqlOperation(const QSqlDatabase &db)
    : m_query(db)
{
}

SqlOperation::SqlOperation(const QSqlDatabase &db, const char *tag)
    : m_query(db)
    , m_tag(tag)
{
}

SqlOperation::SqlOperation(const QSqlDatabase &db, const char *tag, const QString &title, const QString &text)
    : m_query(db)
    , m_tag(tag)
    , m_title(title)
    , m_text(text)
{
}

bool SqlOperation::run(const QString &sql)
{
    m_executed = m_query.exec(sql);
    return m_executed;
}

bool SqlOperation::run(const QString &sql, const SqlValues &values)
{
    prepare(sql);
    return execute(values);
}

bool SqlOperation::prepare(const QString &sql)
{
    if (m_prepared && m_executed && m_query.lastQuery() == sql)
        return true;
    m_executed = false;
    m_prepared = m_query.prepare(sql);
    return m_prepared;
}

bool SqlOperation::execute(const SqlValues &values)
{
    // Executed all the same, the statement would go to the server once more, as text with the values pasted in.
    if (!m_prepared)
        return false;
    for (const SqlValue &bound : values)
        m_query.bindValue(bound.placeholder, bound.value);
    m_executed = m_query.exec();
    return m_executed;
}

bool SqlOperation::failed() const
{
    return !m_executed || m_query.lastError().isValid();
}

QSqlError SqlOperation::error() const
{
    const QSqlError cause = m_query.lastError();
    if (cause.isValid() || m_executed)
        return cause;
    // A handle that is not open: the query object leaves no error for it.
    return QSqlError(QString(), QStringLiteral("Database not open"), QSqlError::ConnectionError);
}

bool SqlOperation::succeededOrReported() const
{
    if (!failed())
        return true;
    report(error());
    return false;
}

void SqlOperation::report(const QSqlError &cause) const
{
    SqlFailure::log(m_tag, cause);
    if (!m_text.isEmpty())
        SqlFailure::show(m_title, m_text);
}

bool SqlOperation::change(const QString &sql, const SqlValues &values)
{
    run(sql, values);
    return succeededOrReported();
}

bool SqlOperation::load(const QString &sql, const std::function<void(const QSqlQuery &)> &visit)
{
    run(sql);
    return visitRows(visit);
}

bool SqlOperation::load(const QString &sql, const SqlValues &values,
                        const std::function<void(const QSqlQuery &)> &visit)
{
    run(sql, values);
    return visitRows(visit);
}

bool SqlOperation::visitRows(const std::function<void(const QSqlQuery &)> &visit)
{
    if (m_executed) {
        while (m_query.next())
            visit(m_query);
    }
    return succeededOrReported();
}
