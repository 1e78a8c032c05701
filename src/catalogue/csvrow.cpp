#include "catalogue/csvrow.h"

#include <QDebug>
#include <QTextStream>

namespace {

constexpr int stateCount = 5;
constexpr int classCount = 5;

// clang-format off
constexpr Csv::State transitions[stateCount][classCount] = {
    //                        comma                quote             line feed          other              end of stream
    /* PlainText      */ {Csv::AfterSeparator, Csv::QuoteOpened,  Csv::EndOfRow,     Csv::PlainText,    Csv::EndOfRow},
    /* AfterSeparator */ {Csv::AfterSeparator, Csv::QuoteOpened,  Csv::EndOfRow,     Csv::PlainText,    Csv::EndOfRow},
    /* QuoteOpened    */ {Csv::InsideQuotes,   Csv::QuoteClosed,  Csv::InsideQuotes, Csv::InsideQuotes, Csv::EndInQuotes},
    /* InsideQuotes   */ {Csv::InsideQuotes,   Csv::QuoteClosed,  Csv::InsideQuotes, Csv::InsideQuotes, Csv::EndInQuotes},
    /* QuoteClosed    */ {Csv::AfterSeparator, Csv::InsideQuotes, Csv::EndOfRow,     Csv::PlainText,    Csv::EndOfRow},
};
// clang-format on

Csv::CharClass classOf(QChar character)
{
    switch (character.unicode()) {
    case ',':
        return Csv::Comma;
    case '"':
        return Csv::Quote;
    case '\n':
        return Csv::LineFeed;
    default:
        return Csv::Other;
    }
}

} // namespace

Csv::State Csv::nextState(State state, CharClass next)
{
    return transitions[state][next];
}

bool Csv::readRow(QTextStream &in, QStringList *row)
{
    row->clear();
    if (in.atEnd())
        return false;
    State state = PlainText;
    QString field;
    while (state < EndOfRow) {
        QChar character;
        CharClass next = EndOfStream;
        if (!in.atEnd()) {
            in >> character;
            next = classOf(character);
        }
        state = nextState(state, next);
        if (state == PlainText || state == InsideQuotes) {
            field.append(character);
        } else if (state == AfterSeparator || state == EndOfRow) {
            row->append(field);
            field.clear();
        }
    }
    if (state == EndInQuotes)
        qDebug() << "End-of-file found while inside quotes.";
    return true;
}
