#pragma once

#include <QList>

class QSqlQuery;
class QStandardItem;
class QString;

/// The rows of the menu grids, made from the rows of the statements in store/menuqueries.h. Each function makes the new
/// items of one row, one for each column of its grid, in the order of the columns; the caller owns them. Every cell is
/// text and an SQL NULL is the empty text.
namespace MenuRows {

/// A row of `MenuColumn` for editing a menu.
QList<QStandardItem *> day(const QSqlQuery &row);

/// A row of `MenuColumn` for the board; `limitToolTip` is shown on the limit.
QList<QStandardItem *> week(const QSqlQuery &row, const QString &limitToolTip);

/// A row of `PersonMenuColumn`, its money without a currency symbol.
QList<QStandardItem *> personDay(const QSqlQuery &row);

/// A last row of `PersonMenuColumn` in bold: its name, the portions and the money as they are to be shown.
QList<QStandardItem *> personTotal(const QString &name, const QString &portions, const QString &money);

/// A row of `WeekMenuColumn`; `dayText` follows the name of a slot, `currencySymbol` the price of a food.
QList<QStandardItem *> printedDay(const QSqlQuery &row, const QString &dayText, const QString &currencySymbol);

} // namespace MenuRows
