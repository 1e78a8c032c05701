#include "support/floor.h"

#include "support/figures.h"

#include <mysql.h>

struct Floor::Connection {
    MYSQL handle = {};
};

Floor::Floor(const QString &socket, const QString &database)
    : m_connection(std::make_unique<Connection>())
{
    mysql_init(&m_connection->handle);
    if (!mysql_real_connect(&m_connection->handle, nullptr, "vianda", nullptr, database.toUtf8().constData(), 0,
                            socket.toLocal8Bit().constData(), 0))
        qFatal("no connection to %s: %s", qPrintable(database), mysql_error(&m_connection->handle));
    mysql_set_character_set(&m_connection->handle, "utf8mb4");
    run("SET SESSION sql_mode = REPLACE(@@sql_mode, 'ONLY_FULL_GROUP_BY', '')");
}

Floor::~Floor()
{
    mysql_close(&m_connection->handle);
}

void Floor::run(const QByteArray &statement)
{
    MYSQL *handle = &m_connection->handle;
    if (mysql_real_query(handle, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
        qFatal("%s\n%s", statement.constData(), mysql_error(handle));
    m_rows = 0;
    if (MYSQL_RES *result = mysql_use_result(handle)) {
        while (mysql_fetch_row(result))
            ++m_rows;
        mysql_free_result(result);
    }
}

double Floor::once(const QByteArray &statement)
{
    run("START TRANSACTION");
    QElapsedTimer timer;
    timer.start();
    run(statement);
    const double time = double(timer.nsecsElapsed()) / 1e6;
    const int rowCount = m_rows;
    run("ROLLBACK");
    m_rows = rowCount;
    return time;
}

double Floor::all(const QVector<QByteArray> &statements)
{
    QElapsedTimer timer;
    timer.start();
    for (const QByteArray &statement : statements)
        run(statement);
    return double(timer.nsecsElapsed()) / 1e6;
}

double Floor::median(const QByteArray &statement, int runs)
{
    once(statement);
    QVector<double> times;
    for (int run = 0; run < runs; ++run)
        times.append(once(statement));
    return ::median(times);
}
