#pragma once

#include <QString>
#include <QStringList>

/// The string side of the report language, without values and scripts.
namespace RptExpression {

/// Cuts a text into tokens: "Sum: <Sum([4])> of [x]" gives "Sum: ", "<Sum([4])>", " of ", "[x]". With
/// `expressionMode`, angle brackets are ordinary characters.
QStringList tokens(const QString &text, bool expressionMode);
/// Cuts a formula at its square brackets: "<[1]+[2]>" gives "<", "[1]", "+", "[2]", ">".
QStringList splitByBrackets(const QString &formula);
/// Whether a token asks for a value: it holds both square brackets and no "<".
bool isDataToken(const QString &token);
/// Whether a token is a formula: it holds both angle brackets. In a condition two comparisons, "1 < 2 && 3 > 2", make
/// one too, and what is left of it is "1  2 && 3  2"; templates keep to one kind of comparison between two values.
bool isFormula(const QString &token);
/// Whether the piece before a token names an aggregate, which wants the token's name and not its value.
bool wantsTokenName(const QString &pieceBefore);
/// A formula as a script: aggregates become `Sum(mode,`, square brackets quote the token's name, angle brackets go.
QString toScript(QString formula);
/// A token's value inside a condition: a number bare, anything else between single quotes, which are not escaped.
QString quoted(const QString &text);

/// A number by the field's `format`: "N", a form ("# ###.##", "#,###.##", "# ###,##" or "#.###,##") and one digit for
/// the decimals. Any other format leaves the text as it is.
QString formatNumber(const QString &text, const QString &formatString);

} // namespace RptExpression
