#pragma once

class QSqlError;
class QString;

/// The one place that knows how a failed statement is told about. The log gets the database's own words, the user a
/// box with the operation's text; a caller that must stay silent towards the user only logs.
namespace SqlFailure {

/// Writes one critical line: `tag`, " - SQL ERROR: " and the error's text, for example
/// "FoodRepository(loading) - SQL ERROR: Lost connection to server during query".
void log(const char *tag, const QSqlError &error);

/// Writes one critical line in the form of the list models: `tag`, " ERROR: [", the native error code, "]: " and the
/// error's text, for example "FoodModel - setQuery ERROR: [2013]: Lost connection ...".
void logWithCode(const char *tag, const QSqlError &error);

/// Shows the stock critical box, without a parent and with the button OK, and waits for it.
/// `title` and `text` come translated in the context of the calling class and are shown as plain text.
void show(const QString &title, const QString &text);

} // namespace SqlFailure
