#pragma once

#include <QStringList>

class QTextStream;

/// The reader of comma-separated text, a table-driven automaton over single characters.
///
/// Records end at a line feed, fields at a comma. A field may stand in double quotes, in which commas and line feeds
/// are ordinary characters and two quotes stand for one. A quote in the middle of a plain field opens a quoted stretch
/// without being stored; text behind a closing quote goes on with the same field; an empty line is a record of one
/// empty field. A carriage return is an ordinary character.
namespace Csv {

/// The states of the automaton.
enum State : int {
    PlainText,
    AfterSeparator,
    QuoteOpened, ///< the quote itself was read
    InsideQuotes,
    QuoteClosed, ///< a quote within quotes was read: the end of the stretch, or the first of a doubled one
    EndOfRow, ///< leaves the automaton with the last field
    EndInQuotes, ///< leaves the automaton without the half-read field
};

/// What the next character is.
enum CharClass : int { Comma, Quote, LineFeed, Other, EndOfStream };

/// The state that `state` (`PlainText` to `QuoteClosed`) goes over to at a character of class `next`.
State nextState(State state, CharClass next);

/// Reads one record. False when the stream was at its end already; `row` is empty then. A stream that ends inside
/// quotes gives the fields completed so far and the log line "End-of-file found while inside quotes.".
bool readRow(QTextStream &in, QStringList *row);

} // namespace Csv
