#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <memory>

/// The least that a statement can cost: it is sent through the MariaDB C client and its rows are fetched one by one
/// into nothing, without Qt.
class Floor {
public:
    /// Connects as the module's account, in a session without ONLY_FULL_GROUP_BY; ends the program when that fails.
    Floor(const QString &socket, const QString &database);
    ~Floor();
    Q_DISABLE_COPY(Floor)

    /// Runs the statement once and gives the milliseconds it took; ends the program when it fails. A statement that
    /// writes is rolled back.
    double once(const QByteArray &statement);
    /// Runs the statements one by one, each committed by itself, and gives the milliseconds they took together.
    double all(const QVector<QByteArray> &statements);
    /// The median of `runs` runs, after one that does not count.
    double median(const QByteArray &statement, int runs);
    /// Rows of the statement that ran last.
    int rows() const { return m_rows; }

private:
    struct Connection;

    void run(const QByteArray &statement);

    std::unique_ptr<Connection> m_connection;
    int m_rows = 0;
};
