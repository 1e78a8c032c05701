#pragma once

#include <QByteArray>
#include <QSqlDatabase>
#include <QVector>

#include <functional>

/// Tells which statements the module's connection really ran, by the server's own log: the text with the values in it,
/// also of prepared statements. Works on a private server, as its administrator. Keep it out of what is timed.
class StatementLog {
public:
    /// Watches `watched`, an open connection; `admin` is one of the server's administrator.
    StatementLog(const QSqlDatabase &watched, const QSqlDatabase &admin);

    /// The statements of the connection while `action` runs, in order.
    QVector<QByteArray> during(const std::function<void()> &action) const;
    /// The longest of them: of a page's statements the one that loads its grid.
    QByteArray longestDuring(const std::function<void()> &action) const;

private:
    QSqlDatabase m_admin;
    qulonglong m_connectionID;
};
