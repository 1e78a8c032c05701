#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

/// Runs one statement and gives the server's error number, "" when it went well: "1451" for a delete that a foreign key
/// refuses, "1142" for a command that the account may not run.
inline QString errorOf(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    return query.exec(statement) ? QString() : query.lastError().nativeErrorCode();
}
