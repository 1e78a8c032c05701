#pragma once

#include "report/rpttokens.h"

#include <QCache>
#include <QString>
#include <QVariant>
#include <QVector>

class RptBandObject;
class RptFieldObject;
class RptValues;
struct RptPrintState;

/// The value of a data token.
struct RptTokenValue {
    QString text;
    bool isFromSql = false; ///< the page definition has an SQL source
    bool isNamed = true; ///< false for a token that does not name that source: it has no value
};

/// Gives the values of data tokens for the current record.
class RptValueSource {
public:
    RptValueSource() = default;
    virtual ~RptValueSource() = default;
    Q_DISABLE_COPY(RptValueSource)

    /// The value of a token with its brackets, "[4]".
    virtual RptTokenValue tokenValue(const QString &token) = 0;
};

/// What a highlighting can say of a field.
enum class RptAspect { Bold, Italic, Underline, Strikeout, FontColor, BackgroundColor };

/// The one way through which the texts of fields go: values, print conditions and highlighting.
///
/// There is no error path. A formula that fails has its error's text as result, a condition that fails is 0. With an
/// SQL source, formulas log their values: "value from DB: " and "formula with value: ". A text is cut up once, not for
/// each record.
class RptText {
public:
    /// All three outlive the object.
    RptText(RptValueSource *source, RptValues *values, const RptPrintState *state);

    /// The text with its tokens replaced. `band` tells scripts whether they keep to the group; without one they do not.
    /// With `expressionMode` the result is meant for a script; with `firstPass` values are recorded for the aggregates;
    /// `formatString` is for numbers, see `RptExpression::formatNumber`.
    QString expandText(const RptBandObject *band, const QString &text, bool expressionMode, bool firstPass,
                       const QString &formatString);
    /// Whether the field's `printing` allows it for the current record.
    bool fieldIsPrinted(const RptFieldObject &field);
    /// One aspect of the field's style for the current record: a truth or a number for the first four, a colour text
    /// for the others; an invalid value when the highlighting says nothing of it.
    QVariant highlightValue(const RptFieldObject &field, RptAspect aspect);

private:
    const QVector<RptToken> &tokensOf(const QString &text, bool expressionMode);
    QString expandDataToken(const QString &token, bool expressionMode, bool firstPass, const QString &formatString);
    QString withEngineValues(QString token) const;
    QString evaluateFormula(const RptBandObject *band, const RptFormula &formula, const QString &formatString);

    RptValueSource *m_source;
    RptValues *m_values;
    const RptPrintState *m_state;
    QCache<QString, QVector<RptToken>> m_texts; // texts cut up, for printing
    QCache<QString, QVector<RptToken>> m_conditions; // likewise for scripts
};
