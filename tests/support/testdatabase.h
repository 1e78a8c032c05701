#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

/// A fresh, empty database of the module's schema on the server of the test run, with an open connection to it; gone
/// when the object goes. The connection is the module's account with the grants of db/grants.sql and no more, in a
/// session that speaks utf8mb4 and has no ONLY_FULL_GROUP_BY, as a host hands it over. The environment variable
/// VIANDA_TEST_SERVER names the server's directory; construction ends the program with a plain message when there is
/// none.
class TestDatabase {
public:
    /// Opens the connection under `connectionName`; the default is the application's default connection.
    explicit TestDatabase(const QString &connectionName = QString());
    ~TestDatabase();
    Q_DISABLE_COPY(TestDatabase)

    /// The module's connection.
    QSqlDatabase db() const;
    /// Path of the server's socket.
    static QString socket();
    /// Name of this database.
    QString name() const { return m_name; }

    /// Runs one statement with all rights on a connection apart, as a second client would; a failure ends the program
    /// with the statement and the error. Gives the number of rows changed.
    int exec(const QString &statement) const;
    /// The first column of the first row, or an invalid value without rows.
    QVariant value(const QString &query) const;
    /// All rows as text, columns joined with "|", NULL as "NULL".
    QStringList rows(const QString &query) const;
    /// Puts the demo firm into the empty database, relative to today and without pictures.
    void loadDemoFirm() const;
    /// Empties every table and starts the keys anew.
    void clear() const;
    /// Makes every later statement of the module's connection fail, as when the server has gone.
    void breakConnection() const;

private:
    QString m_connectionName;
    QString m_adminName;
    QString m_name;
};
