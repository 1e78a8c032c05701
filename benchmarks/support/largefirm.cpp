#include "support/largefirm.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSqlError>

#include <cstdio>
#include <cstdlib>

namespace {

void dropLogLine(QtMsgType type, const QMessageLogContext &, const QString &line)
{
    if (type != QtFatalMsg)
        return;
    std::fputs(line.toUtf8().constData(), stderr);
    std::fputc('\n', stderr);
    std::exit(1);
}

void open(const QString &connection, const QString &user, const QString &socket, const QString &database)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), connection);
    db.setConnectOptions(QStringLiteral("UNIX_SOCKET=") + socket);
    db.setUserName(user);
    db.setDatabaseName(database);
    if (!db.open())
        qFatal("no connection to %s: %s", qPrintable(database), qPrintable(db.lastError().text()));
}

} // namespace

LargeFirm::LargeFirm()
{
    qInstallMessageHandler(dropLogLine);
    QCommandLineParser arguments;
    arguments.addOptions({
        {QStringLiteral("socket"), QStringLiteral("Socket of the server."), QStringLiteral("path")},
        {QStringLiteral("database"), QStringLiteral("Name of the database."), QStringLiteral("name")},
        {QStringLiteral("only"), QStringLiteral("Measure the steps with this text in their name."),
         QStringLiteral("text")},
        {QStringLiteral("runs"), QStringLiteral("Measure each step so often."), QStringLiteral("number"),
         QString::number(m_runs)},
    });
    if (!arguments.parse(QCoreApplication::arguments()) || !arguments.isSet(QStringLiteral("socket"))
        || !arguments.isSet(QStringLiteral("database")))
        qFatal("usage: %s --socket PATH --database NAME [--only TEXT] [--runs N]",
               qPrintable(QCoreApplication::applicationName()));
    m_only = arguments.value(QStringLiteral("only"));
    m_runs = qMax(1, arguments.value(QStringLiteral("runs")).toInt());
    m_socket = arguments.value(QStringLiteral("socket"));
    m_database = arguments.value(QStringLiteral("database"));

    open(QLatin1String(QSqlDatabase::defaultConnection), QStringLiteral("vianda"), m_socket, m_database);
    open(QStringLiteral("admin"), QStringLiteral("root"), m_socket, m_database);
    execute(db(), QStringLiteral("SET NAMES utf8mb4"));
    execute(db(), QStringLiteral("SET SESSION sql_mode = REPLACE(@@sql_mode, 'ONLY_FULL_GROUP_BY', '')"));
    choose();
}

void LargeFirm::choose()
{
    m_branch = firstValue(db(), QStringLiteral("SELECT IFNULL(MIN(bid), 0) FROM via_orderables")).toUInt();
    QString people = QStringLiteral("SELECT uid FROM people WHERE status > 0 AND `end` IS NULL");
    QString ofBranch = QStringLiteral("bid IS NULL");
    if (m_branch > 0) {
        ofBranch = QStringLiteral("bid = %1").arg(m_branch);
        m_branchName = firstValue(db(), QStringLiteral("SELECT name FROM branches WHERE ") + ofBranch).toString();
        people += QStringLiteral(" AND uid IN (SELECT uid FROM brape WHERE %1)").arg(ofBranch);
    }
    m_person = firstValue(db(), people + QStringLiteral(" ORDER BY uid LIMIT 1")).toInt();
    m_item = firstValue(db(),
                        QStringLiteral("SELECT orderableID FROM via_orderables WHERE %1 AND segmentID = %2"
                                       " AND date = '%3' ORDER BY position LIMIT 1")
                            .arg(ofBranch)
                            .arg(segment())
                            .arg(lockedDay().toString(Qt::ISODate)))
                 .toUInt();
}

QSqlQuery execute(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    if (!query.exec(statement))
        qFatal("%s\n%s", qPrintable(statement), qPrintable(query.lastError().text()));
    return query;
}

QVariant firstValue(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query = execute(db, statement);
    if (!query.next())
        qFatal("%s\ngave no row: this is no database of benchmarks/largefirm.sh", qPrintable(statement));
    return query.value(0);
}
