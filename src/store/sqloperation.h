#pragma once

#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVector>

#include <functional>

class QSqlDatabase;

/// The value of one named placeholder of a statement.
struct SqlValue {
    QString placeholder; ///< with its colon, ":foodID"
    QVariant value;
};
using SqlValues = QVector<SqlValue>;

/// Free text for a statement. A null QString is bound as the empty text: only what a repository names as NULL is stored
/// as NULL.
QVariant sqlString(const QString &text);

/// A key for a statement, in which 0 means "none" and is bound as NULL.
QVariant sqlKeyOrNull(quint32 key);

/// One operation of a repository: runs a statement and tells about its failure in the way that all repositories share,
/// one critical line and, if it has texts for one, a box.
class SqlOperation {
public:
    /// An operation whose caller tells about its failure.
    explicit SqlOperation(const QSqlDatabase &db);
    /// An operation that only logs its failure, under `tag`, a text that outlives the operation.
    SqlOperation(const QSqlDatabase &db, const char *tag);
    /// An operation that logs its failure under `tag` and shows it in a box; the texts come translated.
    SqlOperation(const QSqlDatabase &db, const char *tag, const QString &title, const QString &text);

    /// Executes a statement as it stands. Reports nothing.
    bool run(const QString &sql);
    /// Prepares a statement and executes it with these values. Reports nothing.
    bool run(const QString &sql, const SqlValues &values);
    /// Prepares a statement with named placeholders for any number of calls of `execute`. Reports nothing. Costs
    /// nothing when this operation has that statement prepared already and its last execution succeeded.
    bool prepare(const QString &sql);
    /// Binds the values by name (one that the statement does not use is left out) and executes the prepared statement.
    /// One that could not be prepared is not executed and keeps its error. Reports nothing.
    bool execute(const SqlValues &values);
    /// Whether `run` or the fetching of rows after it failed.
    bool failed() const;
    /// Logs, and shows the box, if the operation failed; gives true if it did not. For an operation with a tag.
    bool succeededOrReported() const;
    /// Logs an error of this operation that is not the statement's own, and shows the box. For an operation with a tag.
    void report(const QSqlError &cause) const;

    /// Runs a change and reports its failure; gives whether it succeeded.
    bool change(const QString &sql, const SqlValues &values);
    /// Runs a SELECT, calls `visit` on each row and reports a failure; gives whether it succeeded. No row is no
    /// failure.
    bool load(const QString &sql, const std::function<void(const QSqlQuery &)> &visit);
    bool load(const QString &sql, const SqlValues &values, const std::function<void(const QSqlQuery &)> &visit);

    QSqlQuery &query() { return m_query; }
    /// What went wrong, in the driver's words.
    QSqlError error() const;

private:
    bool visitRows(const std::function<void(const QSqlQuery &)> &visit);

    QSqlQuery m_query;
    const char *m_tag = nullptr;
    QString m_title;
    QString m_text;
    bool m_prepared = false;
    bool m_executed = false;
};
