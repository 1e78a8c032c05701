#include "support/testdatabase.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

const char moduleAccount[] = "vianda";

[[noreturn]] void die(const QString &message)
{
    qFatal("TestDatabase: %s", qPrintable(message));
}

QString databaseScript()
{
    return QStringLiteral(VIANDA_SOURCE_DIR "/scripts/database");
}

QString serverDirectory()
{
    const QString directory = qEnvironmentVariable("VIANDA_TEST_SERVER");
    if (directory.isEmpty())
        die(QStringLiteral("VIANDA_TEST_SERVER is not set; run the tests through ctest"));
    return directory;
}

void runSqlFile(const QString &database, const QString &file)
{
    QProcess client;
    client.setStandardInputFile(QStringLiteral(VIANDA_SOURCE_DIR "/db/") + file);
    client.start(databaseScript(), {QStringLiteral("sql"), serverDirectory(), database});
    if (!client.waitForFinished() || client.exitCode() != 0)
        die(file + QStringLiteral(": ") + QString::fromUtf8(client.readAllStandardError()));
}

QSqlDatabase openConnection(const QString &connectionName, const QString &user, const QString &database)
{
    QSqlDatabase db = connectionName.isEmpty() ? QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"))
                                               : QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), connectionName);
    db.setConnectOptions(QStringLiteral("UNIX_SOCKET=") + TestDatabase::socket());
    db.setUserName(user);
    db.setDatabaseName(database);
    if (!db.open())
        die(db.lastError().text());
    return db;
}

QSqlQuery run(const QString &connectionName, const QString &statement)
{
    QSqlQuery query(QSqlDatabase::database(connectionName));
    if (!query.exec(statement))
        die(statement + QStringLiteral("\n") + query.lastError().text());
    return query;
}

} // namespace

TestDatabase::TestDatabase(const QString &connectionName)
    : m_connectionName(connectionName.isEmpty() ? QLatin1String(QSqlDatabase::defaultConnection) : connectionName)
{
    static int number = 0;
    ++number;
    m_name = QStringLiteral("%1_%2_%3")
                 .arg(QFileInfo(QCoreApplication::applicationFilePath()).baseName())
                 .arg(QCoreApplication::applicationPid())
                 .arg(number);
    m_adminName = QStringLiteral("test-admin-%1").arg(number);
    openConnection(m_adminName, QStringLiteral("root"), QString());
    exec(QStringLiteral("SET NAMES utf8mb4"));
    exec(QStringLiteral("CREATE DATABASE `%1`").arg(m_name));
    exec(QStringLiteral("USE `%1`").arg(m_name));
    exec(QStringLiteral("CREATE USER IF NOT EXISTS '%1'@'localhost'").arg(QLatin1String(moduleAccount)));
    runSqlFile(m_name, QStringLiteral("schema.sql"));
    runSqlFile(m_name, QStringLiteral("grants.sql"));
    openConnection(connectionName, QLatin1String(moduleAccount), m_name);
    // The driver speaks the three-byte utf8 on its own.
    run(m_connectionName, QStringLiteral("SET NAMES utf8mb4"));
    run(m_connectionName, QStringLiteral("SET SESSION sql_mode = REPLACE(@@sql_mode, 'ONLY_FULL_GROUP_BY', '')"));
}

TestDatabase::~TestDatabase()
{
    exec(QStringLiteral("DROP DATABASE `%1`").arg(m_name));
    QSqlDatabase::database(m_connectionName, false).close();
    QSqlDatabase::database(m_adminName, false).close();
    QSqlDatabase::removeDatabase(m_connectionName);
    QSqlDatabase::removeDatabase(m_adminName);
}

QSqlDatabase TestDatabase::db() const
{
    return QSqlDatabase::database(m_connectionName, false);
}

QString TestDatabase::socket()
{
    static const QString path = [] {
        QProcess script;
        script.start(databaseScript(), {QStringLiteral("socket"), serverDirectory()});
        if (!script.waitForFinished() || script.exitCode() != 0)
            die(QString::fromUtf8(script.readAllStandardError()));
        return QString::fromUtf8(script.readAllStandardOutput()).trimmed();
    }();
    return path;
}

int TestDatabase::exec(const QString &statement) const
{
    return run(m_adminName, statement).numRowsAffected();
}

QVariant TestDatabase::value(const QString &query) const
{
    QSqlQuery result = run(m_adminName, query);
    return result.next() ? result.value(0) : QVariant();
}

QStringList TestDatabase::rows(const QString &query) const
{
    QSqlQuery result = run(m_adminName, query);
    QStringList rows;
    while (result.next()) {
        QStringList cells;
        for (int column = 0; column < result.record().count(); ++column)
            cells.append(result.isNull(column) ? QStringLiteral("NULL") : result.value(column).toString());
        rows.append(cells.join(QLatin1Char('|')));
    }
    return rows;
}

void TestDatabase::loadDemoFirm() const
{
    runSqlFile(m_name, QStringLiteral("demo.sql"));
}

void TestDatabase::clear() const
{
    exec(QStringLiteral("SET foreign_key_checks = 0"));
    // Emptying a table that was not touched costs as much as any other: only those with rows, or with keys given out.
    const QStringList tables = rows(QStringLiteral("SHOW TABLES"));
    for (const QString &table : tables) {
        const bool keysGiven = value(QStringLiteral("SELECT AUTO_INCREMENT > 1 FROM information_schema.tables "
                                                    "WHERE table_schema = DATABASE() AND table_name = '%1'")
                                         .arg(table))
                                   .toBool();
        if (keysGiven || value(QStringLiteral("SELECT 1 FROM `%1` LIMIT 1").arg(table)).isValid())
            exec(QStringLiteral("TRUNCATE TABLE `%1`").arg(table));
    }
    exec(QStringLiteral("SET foreign_key_checks = 1"));
}

void TestDatabase::breakConnection() const
{
    QSqlQuery id = run(m_connectionName, QStringLiteral("SELECT CONNECTION_ID()"));
    id.next();
    exec(QStringLiteral("KILL CONNECTION %1").arg(id.value(0).toULongLong()));
}
