#include "report/rpttokens.h"

#include "report/rptexpression.h"

namespace {

bool holdsEngineValue(const QString &token)
{
    for (const char *const name : {"<Date>", "<Time>", "<Page>", "<TotalPages>", "<LineNo>", "<LineCount>"}) {
        if (token.contains(QLatin1String(name)))
            return true;
    }
    return false;
}

} // namespace

RptFormula prepareFormula(const QString &formula)
{
    RptFormula result;
    result.text = formula;
    const QStringList pieces = RptExpression::splitByBrackets(formula);
    for (int i = 1; i < pieces.size(); ++i) {
        const QString &piece = pieces.at(i);
        if (piece.contains(QLatin1Char('[')) && piece.contains(QLatin1Char(']'))
            && !RptExpression::wantsTokenName(pieces.at(i - 1)))
            result.valueTokens.append(piece);
    }
    if (result.valueTokens.isEmpty())
        result.script = RptExpression::toScript(formula);
    return result;
}

QVector<RptToken> prepareTokens(const QString &text, bool expressionMode)
{
    QVector<RptToken> result;
    const QStringList tokens = RptExpression::tokens(text, expressionMode);
    for (const QString &token : tokens) {
        if (RptExpression::isDataToken(token))
            result.append({RptToken::Data, token, {}});
        else if (holdsEngineValue(token))
            result.append({RptToken::Engine, token, {}});
        else if (RptExpression::isFormula(token)) // in a condition two comparisons are one as well: "1 < 2 && 3 > 2"
            result.append({RptToken::Formula, token, prepareFormula(token)});
        else
            result.append({RptToken::Plain, token, {}});
    }
    return result;
}
