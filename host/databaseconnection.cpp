#include "databaseconnection.h"

#include "hostoptions.h"

#include <QCoreApplication>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>

namespace {

/// The module works on the handle that it is given, but its export of foods reads over the default connection: it has
/// to be the same one.
QLatin1String connectionName()
{
    return QLatin1String(QSqlDatabase::defaultConnection);
}

const QLatin1String fullGroupBy("ONLY_FULL_GROUP_BY");

QString tr(const char *text)
{
    return QCoreApplication::translate("DatabaseConnection", text);
}

/// The session's mode; an invalid text with `error` set when the server does not tell.
QString sessionMode(const QSqlDatabase &db, QString &error)
{
    QSqlQuery query(db);
    if (query.exec(QStringLiteral("SELECT @@SESSION.sql_mode")) && query.next())
        return query.value(0).toString();
    error = query.lastError().text();
    return {};
}

QString setSessionMode(const QSqlDatabase &db, const QString &mode)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SET SESSION sql_mode = ?"));
    // A null text would be bound as NULL, which is no mode.
    query.addBindValue(mode.isNull() ? QString(QLatin1String("")) : mode);
    return query.exec() ? QString() : query.lastError().text();
}

QString describe(const DatabaseOptions &options)
{
    const QString where =
        options.socket.isEmpty() ? QStringLiteral("%1:%2").arg(options.host).arg(options.port) : options.socket;
    return tr("%1 na %2").arg(options.name, where);
}

QSqlDatabase makeConnection(const DatabaseOptions &options)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), connectionName());
    db.setDatabaseName(options.name);
    db.setUserName(options.user);
    db.setPassword(options.password);
    if (!options.socket.isEmpty()) {
        db.setConnectOptions(QStringLiteral("UNIX_SOCKET=") + options.socket);
    } else {
        // The client library takes the word "localhost" for its default socket; the address is what makes it TCP.
        db.setHostName(options.host == QLatin1String("localhost") ? QStringLiteral("127.0.0.1") : options.host);
        db.setPort(options.port);
    }
    return db;
}

} // namespace

QString speakWholeUtf8(const QSqlDatabase &db)
{
    QSqlQuery query(db);
    if (query.exec(QStringLiteral("SET NAMES utf8mb4")))
        return {};
    qCritical().noquote() << "Host: the server refuses to speak utf8mb4 -" << query.lastError().text();
    return tr("Server odmietol znakovú sadu utf8mb4; niektoré znaky sa nemusia uložiť. %1")
        .arg(query.lastError().text());
}

bool refusesPartialGroupBy(const QString &sqlMode)
{
    return sqlMode.split(QLatin1Char(',')).contains(fullGroupBy, Qt::CaseInsensitive);
}

QString withoutFullGroupBy(const QString &sqlMode)
{
    QStringList kept;
    const QStringList members = sqlMode.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &member : members) {
        if (member.compare(fullGroupBy, Qt::CaseInsensitive) != 0
            && member.compare(QLatin1String("ANSI"), Qt::CaseInsensitive) != 0)
            kept.append(member);
    }
    return kept.join(QLatin1Char(','));
}

QString relaxGroupBy(const QSqlDatabase &db)
{
    QString error;
    const QString before = sessionMode(db, error);
    if (error.isEmpty())
        error = setSessionMode(db, withoutFullGroupBy(before));
    const QString after = error.isEmpty() ? sessionMode(db, error) : QString();
    if (!error.isEmpty()) {
        qCritical().noquote() << "Host: the server refuses to take ONLY_FULL_GROUP_BY out of sql_mode -" << error;
        return tr("Server odmietol vypnúť režim ONLY_FULL_GROUP_BY; jedálne lístky sa nemusia načítať. %1").arg(error);
    }
    if (refusesPartialGroupBy(after)) {
        qCritical().noquote() << "Host: ONLY_FULL_GROUP_BY is still on, sql_mode is" << after;
        return tr("Režim ONLY_FULL_GROUP_BY zostal na serveri zapnutý; jedálne lístky sa nemusia načítať.");
    }
    return {};
}

DatabaseConnection::DatabaseConnection(const DatabaseOptions &options)
    : m_description(describe(options))
{
    QSqlDatabase db = makeConnection(options);
    if (db.open()) {
        QStringList problems{speakWholeUtf8(db), relaxGroupBy(db)};
        problems.removeAll(QString());
        m_problem = problems.join(QLatin1Char(' '));
        return;
    }
    const QString reason =
        db.lastError().databaseText().isEmpty() ? db.lastError().text() : db.lastError().databaseText();
    qCritical().noquote() << "Host: no connection to the database -" << reason;
    m_problem = tr("Nepodarilo sa pripojiť k databáze %1. %2").arg(m_description, reason);
}

DatabaseConnection::~DatabaseConnection()
{
    QSqlDatabase::database(connectionName(), false).close();
    QSqlDatabase::removeDatabase(connectionName());
}

QSqlDatabase DatabaseConnection::handle() const
{
    return QSqlDatabase::database(connectionName(), false);
}

bool DatabaseConnection::isOpen() const
{
    return handle().isOpen();
}
