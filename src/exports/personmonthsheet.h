#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVector>

class QAbstractItemModel;

namespace Spreadsheet {
class Book;
}

/// What one person ordered in a month.
struct PersonMonth {
    struct Order {
        QString date;
        QString segment;
        QString food;
        double price = 0; ///< euros, of a portion
        QString quantity; ///< portions
        double sum = 0; ///< euros
        QString ordered;
        QString delivered;
    };

    QDate day; ///< any of the month
    QString person; ///< as the title tells it, "ID: [17] Adamec Ján"
    QVector<Order> orders;
};

/// The rows of `OrderModel::personDateOrders`; none for null. A cell that is no number counts 0 where one is needed.
QVector<PersonMonth::Order> personMonthOrders(const QAbstractItemModel *rows);

/// The title of a person's workbook and of the message that it was written.
QString personMonthTitle();

/// Makes the one sheet of a person's month in a new `book`: a row for each order, and the total of the prices. `now`
/// stands in its footer. False when the book's file format has too few rows; the book is not to be saved then, and has
/// the reason. Logs as `beginSheet` does.
bool writePersonMonth(Spreadsheet::Book &book, const PersonMonth &month, const QDateTime &now);
