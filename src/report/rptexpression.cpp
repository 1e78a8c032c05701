#include "report/rptexpression.h"

#include <QLocale>

namespace {

/// Adds the buffer to the list, unless it is empty, and empties it.
void close(QString *buffer, QStringList *list)
{
    if (!buffer->isEmpty())
        list->append(*buffer);
    buffer->clear();
}

/// Thousands by commas from the last point, or the end, to the left. Every character counts, the sign too: "-123.45"
/// becomes "-,123.45". Printed reports have always shown it so.
QString withCommas(QString number)
{
    const int point = number.lastIndexOf(QLatin1Char('.'));
    for (int at = (point < 0 ? number.size() : point) - 3; at > 0; at -= 3)
        number.insert(at, QLatin1Char(','));
    return number;
}

} // namespace

namespace RptExpression {

QStringList tokens(const QString &text, bool expressionMode)
{
    QStringList result;
    QString buffer;
    bool inAngle = false;
    for (const QChar c : text) {
        const bool isAngle = c == QLatin1Char('<') || c == QLatin1Char('>');
        const bool isSquare = c == QLatin1Char('[') || c == QLatin1Char(']');
        if ((!isAngle && !isSquare) || (isSquare && inAngle) || (isAngle && expressionMode)) {
            buffer += c;
        } else if (c == QLatin1Char('[') || c == QLatin1Char('<')) {
            close(&buffer, &result);
            buffer += c;
            inAngle = isAngle;
        } else {
            buffer += c;
            close(&buffer, &result);
            inAngle = false;
        }
    }
    close(&buffer, &result);
    return result;
}

QStringList splitByBrackets(const QString &formula)
{
    QStringList result;
    QString buffer;
    for (const QChar c : formula) {
        if (c == QLatin1Char('['))
            close(&buffer, &result);
        buffer += c;
        if (c == QLatin1Char(']'))
            close(&buffer, &result);
    }
    close(&buffer, &result);
    return result;
}

bool isDataToken(const QString &token)
{
    return token.contains(QLatin1Char('[')) && token.contains(QLatin1Char(']')) && !token.contains(QLatin1Char('<'));
}

bool isFormula(const QString &token)
{
    return token.contains(QLatin1Char('<')) && token.contains(QLatin1Char('>'));
}

bool wantsTokenName(const QString &pieceBefore)
{
    // Only these five, wherever they stand: "Summary of " counts as an aggregate too. The functions NumberToWords,
    // Frac, Floor, Ceil, Round, ToUpper and ToLower take the token's value, which templates rely on.
    const QString text = pieceBefore.toUpper();
    for (const char *const name : {"SUM", "AVG", "COUNT", "MAX", "MIN"}) {
        if (text.contains(QLatin1String(name)))
            return true;
    }
    return false;
}

QString toScript(QString formula)
{
    struct Aggregate {
        const char *call;
        const char *script;
    };
    constexpr Aggregate aggregates[] = {
        {"Sum(", "Sum(0,"}, {"Avg(", "Sum(1,"}, {"Count(", "Sum(2,"}, {"Max(", "Sum(3,"}, {"Min(", "Sum(4,"}};
    // Any name that ends so is taken for the aggregate: "Math.max(" is "Math.Sum(3,", and fails. Kept, since a template
    // may spell its aggregates in any case and with anything before them.
    for (const Aggregate &aggregate : aggregates)
        formula.replace(QLatin1String(aggregate.call), QLatin1String(aggregate.script), Qt::CaseInsensitive);
    formula.replace(QLatin1Char('['), QLatin1String("'["));
    formula.replace(QLatin1Char(']'), QLatin1String("]'"));
    // Comparisons go with the delimiters: a printed formula has no "less than". Conditions have.
    formula.remove(QLatin1Char('<'));
    formula.remove(QLatin1Char('>'));
    return formula;
}

QString quoted(const QString &text)
{
    // What reads as float or as whole number reads as double as well.
    bool isNumber = false;
    text.toDouble(&isNumber);
    // An apostrophe in the text ends the script's string, and the condition fails: the field is not printed. Kept.
    return isNumber ? text : QLatin1Char('\'') + text + QLatin1Char('\'');
}

QString formatNumber(const QString &text, const QString &formatString)
{
    if (!formatString.startsWith(QLatin1Char('N')))
        return text;
    const QString form = formatString.mid(1, formatString.size() - 2);
    const int decimals = formatString.rightRef(1).toInt(); // 0 for what is no digit
    const double number = text.toDouble(); // 0 for a text that is no number: an empty cell prints as "0.00"
    const auto inLocale = [&](const QLocale &locale) { return locale.toString(number, 'f', decimals); };

    // The C locale groups nothing, so the first form has never shown thousands apart.
    if (form == QLatin1String("# ###.##"))
        return inLocale(QLocale(QLocale::C)).replace(QLatin1Char(','), QLatin1Char(' '));
    if (form == QLatin1String("#,###.##"))
        return withCommas(inLocale(QLocale(QLocale::C)));
    if (form == QLatin1String("# ###,##"))
        return inLocale(QLocale(QStringLiteral("fr_FR")));
    if (form == QLatin1String("#.###,##"))
        return inLocale(QLocale(QLocale::German));
    return text;
}

} // namespace RptExpression
