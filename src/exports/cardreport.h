#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

class QAbstractItemModel;

/// What the printout of a day card says under the names in its template. All functions only read.
namespace CardReport {

/// Sets `value` for the token `name`, "0" to "2", to the cell of that column of the card's filter in `row`, counted
/// from 0: item, count, order limit. Any other name, and a cell that `rows` does not have, leaves `value` as it came.
void setValue(const QAbstractItemModel &rows, int row, const QString &name, QVariant &value);

/// The header while no person is selected: "Objednávka: 16. 3. 2020, Obed" once the order is final, otherwise
/// "Predbežná objednávka: 16. 3. 2020, Obed".
QString menuHeader(QDate date, const QString &segment, bool isFinal);

/// The header of one person's orders: "16. 3. 2020, Obed, [17] Adamec Ján". `person` is the label of that person, empty
/// for an unknown one.
QString personHeader(QDate date, const QString &segment, const QString &person);

} // namespace CardReport
