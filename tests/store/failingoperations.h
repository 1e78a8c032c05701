#pragma once

#include <QSqlDatabase>
#include <QStringList>
#include <QVector>

#include <functional>

/// One operation of a repository, and what becomes of it when the database does not answer.
struct FailingOperation {
    QByteArray name;
    /// Calls the operation and gives its result as text.
    std::function<QString(const QSqlDatabase &)> call;
    QString result;
    /// The critical lines, each up to the database's own words, which must follow. A line that ends in ":" is whole.
    QStringList lines;
    /// The texts of the boxes, all titled "Chyba databázy".
    QStringList boxes;
};

/// Every operation of every repository.
QVector<FailingOperation> failingOperations();
