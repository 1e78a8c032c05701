#include "report/rptsql.h"

#include "report/rptpageobject.h"

#include <QDebug>
#include <QSqlError>
#include <QSqlRecord>
#include <QTextCodec>

namespace {

QString connectionName(const RptSqlConnection &connection)
{
    return connection.dbConnectionName.isEmpty() ? QLatin1String(QSqlDatabase::defaultConnection)
                                                 : connection.dbConnectionName;
}

void setLocaleCodec(const QString &name)
{
    if (QTextCodec *codec = QTextCodec::codecForName(name.toLatin1()))
        QTextCodec::setCodecForLocale(codec);
    else
        qDebug().noquote() << "Unknown codec" << name;
}

void logError(const QSqlQuery &query)
{
    qDebug().noquote() << query.lastError().text();
}

} // namespace

RptSql::RptSql(const RptSqlConnection &connection, QObject *parent)
    : QObject(parent)
    , m_db(QSqlDatabase::addDatabase(connection.dbType, connectionName(connection)))
{
    m_db.setDatabaseName(connection.dbName);
    m_db.setHostName(connection.dbHost);
    m_db.setUserName(connection.dbUser);
    m_db.setPassword(connection.dbPassword);
    if (connection.dbPort != 0)
        m_db.setPort(connection.dbPort);
}

RptSql::~RptSql() = default;

bool RptSql::openQuery(const QString &statement, const QString &dbCoding, const QString &charsetCoding)
{
    m_db.open();
    if (m_db.isOpen())
        qDebug() << "open DB";
    else
        qDebug().noquote() << "Failed open DB" << m_db.lastError().text();
    m_query = std::make_unique<QSqlQuery>(m_db);
    if (!dbCoding.isEmpty() && m_db.driverName().contains(QLatin1String("MYSQL"))
        && !m_query->exec(QStringLiteral("set names '") + dbCoding + QLatin1Char('\'')))
        logError(*m_query);
    if (!charsetCoding.isEmpty())
        setLocaleCodec(charsetCoding);
    if (m_query->exec(statement))
        return true;
    logError(*m_query);
    return false;
}

int RptSql::recordCount()
{
    return m_query && m_query->isActive() && m_query->last() ? m_query->at() + 1 : 0;
}

QString RptSql::fieldValue(const QString &fieldName, int recNo)
{
    return cell(fieldName, recNo).toString();
}

QImage RptSql::fieldImage(const QString &fieldName, int recNo)
{
    return QImage::fromData(cell(fieldName, recNo).toByteArray());
}

QVariant RptSql::cell(const QString &fieldName, int recNo)
{
    if (!m_query || !m_query->isActive()) {
        qDebug() << "Query is not active";
        return QVariant();
    }
    if (recNo >= recordCount()) {
        qDebug() << "recNo more than recordCount";
        return QVariant();
    }
    const int column = m_query->record().indexOf(fieldName);
    if (column < 0) {
        qDebug().noquote() << "Unknown column" << fieldName;
        return QVariant();
    }
    return m_query->seek(recNo) ? m_query->value(column) : QVariant();
}
