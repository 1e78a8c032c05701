#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A formula, cut up as far as that goes without values.
struct RptFormula {
    QString text; ///< with its tokens
    QStringList valueTokens; ///< tokens that give way to their value, in order, each as often as it stands there
    QString script; ///< ready when there are none
};

/// One token of a field's text, with what is to be done about it.
struct RptToken {
    enum Kind {
        Plain, ///< goes into the result as it stands
        Data, ///< a value by its name
        Formula,
        Engine ///< holds a value of the engine, such as "<Page>"; what it is afterwards depends on that
    };

    Kind kind = Plain;
    QString text;
    RptFormula formula; ///< of `Formula`
};

/// Cuts a formula up.
RptFormula prepareFormula(const QString &formula);
/// Cuts a text up, as `RptExpression::tokens` does.
QVector<RptToken> prepareTokens(const QString &text, bool expressionMode);
