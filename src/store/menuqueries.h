#pragma once

#include <QDate>
#include <QString>

/// The statements behind the menu grids. Each is a UNION of menu rows and one heading row for each meal type (in the
/// printed week for each service slot), so that headings and the meals under them come back in display order. Only
/// numbers and dates are put into them; `bid` 0 chooses the text for all branches (`bid IS NULL`).
///
/// In the first three the heading's position is the text '0', which makes the whole column text: the server sorts
/// position "10" before "2", and a food without a position (NULL) before its heading.
namespace MenuQueries {

/// One service slot of one day and all foods that may be offered. Placeholders: `:date`, `:segmentID` and, unless `bid`
/// is 0, `:bid`. The columns are those of `MenuColumn`.
///
/// `GROUP BY z.foodID` has to keep the first row of each food, its menu row where there is one and its catalogue row
/// otherwise. That is the server's own choice without ONLY_FULL_GROUP_BY: it groups into a temporary table while it
/// reads the joined rows in the order in which they were stored. Only rows of several kilobytes, from names of
/// thousands of characters in a slot of 60 and more items, can be stored out of order.
QString dayMenu(uint bid);

/// The seven days around `date`, the total being that of person `uid` or, for -1, of all. No placeholders. The columns
/// are those of `MenuColumn`.
QString week(QDate date, uint bid, int uid);

/// One person's order form. Placeholders: `:date`, `:segmentID`, `:uid` and, unless `bid` is 0, `:bid`. The columns are
/// 0 food, 1 type's position, 2 name, 3 menu item, 4 slot, 5 date, 6 position, 7 locked, 8 price, 9 portions,
/// 10 supplier's shortcut, 11 informative.
QString personDay(uint bid);

/// The locked items of one day for print, under their slots. No placeholders. The columns are 0 slot's name (headings
/// only), 1 type's name, 2 food's name with the supplier's shortcut, 3 price, 4 position, 5 slot, 6 type's position.
QString printedDay(QDate day, uint bid);

} // namespace MenuQueries
