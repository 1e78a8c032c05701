#pragma once

#include <QImage>
#include <QObject>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <memory>

struct RptSqlConnection;

/// An SQL source of a report's records. Its object name is the one that tokens carry: "[customers.name]" for the object
/// name "customers". Nothing is shown; failures go to the debug log, and what cannot be read is empty.
class RptSql : public QObject {
    Q_OBJECT

public:
    /// Adds the database connection of `connection`, under the application's default name if it names none. A
    /// connection that stands under that name is replaced, the application's own included: whoever used it finds its
    /// queries dead. The connection stays when this object goes. A port of 0 is left to the driver.
    explicit RptSql(const RptSqlConnection &connection, QObject *parent = nullptr);
    ~RptSql() override;

    /// Opens the database and runs the statement; each step goes on after a failure of the one before. The debug log
    /// gets "open DB", or "Failed open DB" and the driver's error, and then the statement's error if there is one.
    /// `dbCoding` goes as it stands into MySQL's "set names"; other drivers leave it. `charsetCoding` becomes the
    /// process's locale codec and stays so; an unknown name changes nothing. Gives whether the statement succeeded.
    bool openQuery(const QString &statement, const QString &dbCoding, const QString &charsetCoding);
    /// Records of the statement, 0 without one that ran. Moves to the last one.
    int recordCount();
    /// The cell of a column, by name, and record, from 0, as text. Empty when there is none, with a debug line: "Query
    /// is not active", "recNo more than recordCount", or "Unknown column" and the name.
    QString fieldValue(const QString &fieldName, int recNo);
    /// A cell's bytes as an image; a null one, with the same lines, when there is none.
    QImage fieldImage(const QString &fieldName, int recNo);

private:
    QVariant cell(const QString &fieldName, int recNo);

    QSqlDatabase m_db;
    std::unique_ptr<QSqlQuery> m_query;
};
