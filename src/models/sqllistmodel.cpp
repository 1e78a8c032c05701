#include "models/sqllistmodel.h"

#include "session/sqlfailure.h"

#include <QSqlError>
#include <QSqlQuery>

SqlListModel::SqlListModel(const QSqlDatabase &db, QObject *parent)
    : QSqlQueryModel(parent)
    , m_database(db)
{
}

QVariant SqlListModel::data(const QModelIndex &index, int role) const
{
    const QVariant value = QSqlQueryModel::data(index, role);
    return role == Qt::DisplayRole && value.isNull() ? QVariant() : value;
}

bool SqlListModel::load(const QString &statement)
{
    setQuery(statement, m_database);
    return query().isActive();
}

bool SqlListModel::load(const QString &statement, const char *logTag, const QStringList &headers)
{
    load(statement);
    return finishLoad(logTag, headers);
}

bool SqlListModel::load(const QString &statement, const QVariantMap &values, const char *logTag,
                        const QStringList &headers)
{
    QSqlQuery query(m_database);
    query.prepare(statement);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        query.bindValue(value.key(), value.value());
    query.exec();
    setQuery(query);
    return finishLoad(logTag, headers);
}

bool SqlListModel::finishLoad(const char *logTag, const QStringList &headers)
{
    if (!query().isActive()) {
        SqlFailure::logWithCode(logTag, lastError());
        return false;
    }
    for (int column = 0; column < headers.size(); ++column)
        setHeaderData(column, Qt::Horizontal, headers.at(column));
    return true;
}
