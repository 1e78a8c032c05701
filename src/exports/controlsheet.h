#pragma once

class QDateTime;
class QString;
struct ControlMonth;

namespace Spreadsheet {
class Book;
}

/// The title of the control export and of the messages about it.
QString controlTitle();

/// Makes the one sheet of the control export in a new `book`: a cross table of a month with a row for each person, the
/// columns of `ControlColumns`, ordered portions in the cells, and below the people two rows of sums for each slot, by
/// type and of the slot. `now` stands in the footer.
///
/// - Orders of one person, day, slot and type add up in their cell.
/// - A person is a number and a name: equal numbers with different names are two rows, even where their orders come by
///   turns.
/// - An order without a column (`ControlPlaces::columnOf`) is left out of the table, its sums included; a person who
/// has
///   no other order has no row.
/// - A Saturday or Sunday without an order is hidden; with `Session::debugLevel` above 1 each of its columns is logged.
///
/// False when the book's file format has too few rows or columns; the book is not to be saved then, and has the reason.
/// Logs as `beginSheet` does.
bool writeControlSheet(Spreadsheet::Book &book, const ControlMonth &month, const QDateTime &now);
