#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVector>

class QAbstractItemModel;

namespace Spreadsheet {
class Book;
}

/// What the people of a branch ordered in a month.
struct BranchMonth {
    struct Person {
        QString pid;
        QString pamId;
        QString name;
        double quantity = 0; ///< portions
        double sum = 0; ///< euros
    };

    QDate day; ///< any of the month
    QString branch; ///< as the selector shows it
    QVector<Person> people;
};

/// The rows of `OrderModel::branchDateOrders`; none for null. A cell that is no number counts 0.
QVector<BranchMonth::Person> branchMonthPeople(const QAbstractItemModel *rows);

/// The title of a branch's workbook and of the messages about it.
QString branchMonthTitle();

/// Makes the one sheet of a branch's month in a new `book`: a row for each person, and the sums. `now` stands in its
/// footer. False when the book's file format has too few rows; the book is not to be saved then, and has the reason.
/// Logs as `beginSheet` does.
bool writeBranchMonth(Spreadsheet::Book &book, const BranchMonth &month, const QDateTime &now);
