#pragma once

#include <QMap>
#include <QString>

class QDebug;
class QSqlQuery;

/// What one person ordered in a period.
struct PersonOrderSum {
    QString pamId; ///< payroll number; may be empty
    QString personName;
    qint64 quantity = 0; ///< portions
    double price = 0; ///< portions times unit prices
};

/// Sums by personal number (pid), in its order.
using PersonOrderSums = QMap<qint64, PersonOrderSum>;

/// Adds up the rows of an executed query with the columns pid, pamId, personName, sumquantity and sumprice, one row for
/// each order. A NULL quantity or price counts as 0: so a person without orders has the sum 0.
PersonOrderSums sumByPerson(QSqlQuery &query);

/// `PersonOrderSum("P-12", "Novák Ján", 3, 14.7)`.
QDebug operator<<(QDebug debug, const PersonOrderSum &sum);
