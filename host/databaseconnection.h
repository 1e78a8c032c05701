#pragma once

#include <QSqlDatabase>
#include <QString>

struct DatabaseOptions;

/// Makes an open connection speak utf8mb4. On its own the driver speaks the three-byte utf8, in which the server
/// refuses an emoji, or stores question marks where a statement ignores errors. Gives a Slovak text, also logged, when
/// the server refuses; empty when all is well.
QString speakWholeUtf8(const QSqlDatabase &db);
/// Whether a session with this sql_mode refuses a GROUP BY whose other columns are not aggregated.
bool refusesPartialGroupBy(const QString &sqlMode);
/// The mode without ONLY_FULL_GROUP_BY, and without the name of the combination that would bring it back (ANSI); the
/// other members of that combination stand in the mode by their own names.
QString withoutFullGroupBy(const QString &sqlMode);
/// Takes ONLY_FULL_GROUP_BY out of the session of an open connection, which the module's statements need. Gives a
/// Slovak text, also logged, when the server refuses or when the mode is still on afterwards; empty when all is well.
QString relaxGroupBy(const QSqlDatabase &db);

/// The program's one MySQL connection, open while it lives if the server lets us in. All copies of the handle must be
/// gone before it is destroyed.
class DatabaseConnection {
public:
    /// Tries to open; never throws and shows nothing.
    explicit DatabaseConnection(const DatabaseOptions &options);
    ~DatabaseConnection();
    Q_DISABLE_COPY(DatabaseConnection)

    /// The handle, closed if the connection could not be opened.
    QSqlDatabase handle() const;
    bool isOpen() const;
    /// What the user has to know, in Slovak and logged before: no connection, or one in which the module will fail.
    /// Empty when all is well.
    QString problem() const { return m_problem; }
    /// Where the connection goes, "vianda na localhost:3306", without the password.
    QString description() const { return m_description; }

private:
    QString m_problem;
    QString m_description;
};
