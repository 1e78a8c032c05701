#include "report/rpttext.h"

#include "report/rptattributes.h"
#include "report/rptbandobject.h"
#include "report/rptexpression.h"
#include "report/rptfieldobject.h"
#include "report/rptprintstate.h"
#include "report/rptscript.h"
#include "report/rptvalues.h"

#include <QDateTime>
#include <QDebug>

namespace {

constexpr int maxTexts = 1000;

/// The word of an aspect in a highlighting.
QString aspectWord(RptAspect aspect)
{
    switch (aspect) {
    case RptAspect::Bold:
        return QStringLiteral("bold");
    case RptAspect::Italic:
        return QStringLiteral("italic");
    case RptAspect::Underline:
        return QStringLiteral("underline");
    case RptAspect::Strikeout:
        return QStringLiteral("strikeout");
    case RptAspect::FontColor:
        return QStringLiteral("fontColor");
    case RptAspect::BackgroundColor:
        break;
    }
    return QStringLiteral("backgroundColor");
}

QString defaultColor(const RptFieldObject &field, RptAspect aspect)
{
    return RptAttributes::colorText(aspect == RptAspect::FontColor ? field.defaultFontColor
                                                                   : field.defaultBackgroundColor);
}

/// The field's own style, without highlighting.
QVariant ownStyle(const RptFieldObject &field, RptAspect aspect)
{
    switch (aspect) {
    case RptAspect::Bold:
        return field.font.weight() > QFont::Medium; // 57
    case RptAspect::Italic:
        return field.font.style() != QFont::StyleNormal;
    case RptAspect::Underline:
        return field.font.underline();
    case RptAspect::Strikeout:
        return field.font.strikeOut();
    case RptAspect::FontColor:
    case RptAspect::BackgroundColor:
        break;
    }
    return defaultColor(field, aspect);
}

/// The first clause of a highlighting that holds a word; a null text when there is none.
QString clauseWith(const QStringList &parts, const QString &word)
{
    for (int i = 1; i < parts.size(); ++i) {
        if (parts.at(i).contains(word))
            return parts.at(i);
    }
    return QString();
}

} // namespace

RptText::RptText(RptValueSource *source, RptValues *values, const RptPrintState *state)
    : m_source(source)
    , m_values(values)
    , m_state(state)
    , m_texts(maxTexts)
    , m_conditions(maxTexts)
{
}

const QVector<RptToken> &RptText::tokensOf(const QString &text, bool expressionMode)
{
    QCache<QString, QVector<RptToken>> &cache = expressionMode ? m_conditions : m_texts;
    if (const QVector<RptToken> *const known = cache.object(text))
        return *known;
    auto *const tokens = new QVector<RptToken>(prepareTokens(text, expressionMode));
    cache.insert(text, tokens);
    return *cache.object(text);
}

QString RptText::expandText(const RptBandObject *band, const QString &text, bool expressionMode, bool firstPass,
                            const QString &formatString)
{
    QString result;
    const QVector<RptToken> tokens = tokensOf(text, expressionMode); // a copy: values may come by way of other texts
    for (const RptToken &token : tokens) {
        switch (token.kind) {
        case RptToken::Plain:
            result += token.text;
            break;
        case RptToken::Data:
            result += expandDataToken(token.text, expressionMode, firstPass, formatString);
            break;
        case RptToken::Formula:
            result += evaluateFormula(band, token.formula, formatString);
            break;
        case RptToken::Engine: {
            const QString replaced = withEngineValues(token.text);
            result += RptExpression::isFormula(replaced) ? evaluateFormula(band, prepareFormula(replaced), formatString)
                                                         : replaced;
            break;
        }
        }
    }
    return result;
}

QString RptText::expandDataToken(const QString &token, bool expressionMode, bool firstPass, const QString &formatString)
{
    const QString value = m_source->tokenValue(token).text;
    if (expressionMode)
        return RptExpression::quoted(value);
    if (firstPass && m_state->recordsValues)
        m_values->add(token, value, m_state->recNo, m_state->pageReport);
    return RptExpression::formatNumber(value, formatString);
}

QString RptText::withEngineValues(QString token) const
{
    const auto replace = [&token](const char *name, auto value) {
        if (token.contains(QLatin1String(name)))
            token.replace(QLatin1String(name), value());
    };
    replace("<Date>", [] { return QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy")); });
    replace("<Time>", [] { return QTime::currentTime().toString(); });
    replace("<Page>", [this] { return QString::number(m_state->curPage); });
    replace("<TotalPages>", [this] { return QString::number(m_state->totalPage); });
    replace("<LineNo>",
            [this] { return QString::number(m_state->groupValues.isEmpty() ? m_state->recNo + 1 : m_state->lineNo); });
    replace("<LineCount>", [this] { return QString::number(m_values->lineCount(m_state->pageReport)); });
    return token;
}

QString RptText::evaluateFormula(const RptBandObject *band, const RptFormula &formula, const QString &formatString)
{
    QString text = formula.text;
    for (const QString &token : formula.valueTokens) {
        const RptTokenValue value = m_source->tokenValue(token);
        if (!value.isNamed)
            continue;
        // Bare: a text that is no number is for the template to quote. Everywhere: the name that an aggregate in the
        // same formula wants goes too. Both are kept, since templates are written for them.
        text.replace(token, value.text);
        if (value.isFromSql) {
            qDebug() << "value from DB: " << value.text;
            qDebug() << "formula with value: " << text;
        }
    }
    const QString script = formula.valueTokens.isEmpty() ? formula.script : RptExpression::toScript(text);
    return RptExpression::formatNumber(RptScript::formulaText(script, band && band->showInGroup), formatString);
}

bool RptText::fieldIsPrinted(const RptFieldObject &field)
{
    if (field.printing.size() < 2) // nearly every field: no script
        return field.printing.toInt() != 0;
    const QString script = expandText(field.parentBand, field.printing, true, false, QString());
    return RptScript::conditionNumber(script) != 0;
}

QVariant RptText::highlightValue(const RptFieldObject &field, RptAspect aspect)
{
    if (field.highlighting.isEmpty())
        return ownStyle(field, aspect);
    const QString word = aspectWord(aspect);
    // Only the background has this guard. A highlighting that does not name the font's colour leaves the font without a
    // valid one: kept, printed reports look so.
    if (aspect == RptAspect::BackgroundColor && !field.highlighting.contains(word))
        return defaultColor(field, aspect);
    const QStringList parts = field.highlighting.split(QLatin1Char(';'));
    QString clause = clauseWith(parts, word);
    if (clause.isNull())
        return QVariant();

    clause.remove(word + QLatin1Char('='));
    const bool isColor = aspect == RptAspect::FontColor || aspect == RptAspect::BackgroundColor;
    if (isColor)
        clause.insert(1, QLatin1Char('\'')); // "?rgba(...)" becomes "?'rgba(...)"
    const QString script = expandText(field.parentBand, parts.first() + clause, true, false, QString());
    if (!isColor)
        return RptScript::conditionNumber(script);
    return RptScript::conditionText(script + QLatin1String("':'") + defaultColor(field, aspect) + QLatin1Char('\''));
}
