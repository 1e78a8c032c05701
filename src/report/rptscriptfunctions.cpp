#include "report/rptscriptfunctions.h"

#include "report/numberstowords.h"
#include "report/rptvalues.h"

#include <QScriptContext>
#include <QScriptEngine>

#include <cmath>

namespace {

QString textArgument(QScriptContext *context, int index)
{
    return context->argument(index).toString();
}

double numberArgument(QScriptContext *context, int index)
{
    return textArgument(context, index).toDouble();
}

/// A whole number for the script; 0 for what has no whole part, infinity and not-a-number.
QScriptValue whole(double number)
{
    return std::isfinite(number) ? std::trunc(number) + 0.0 : 0.0;
}

QScriptValue sum(QScriptContext *context, QScriptEngine *engine)
{
    // A mode between two whole numbers is none of the modes.
    const double mode = numberArgument(context, 0);
    const bool isMode = mode == 0 || mode == 1 || mode == 2 || mode == 3 || mode == 4;
    const bool showInGroup = engine->globalObject().property(QStringLiteral("showInGroup")).toBool();
    return RptValues::instance().aggregate(isMode ? static_cast<int>(mode) : -1, textArgument(context, 1), showInGroup);
}

QScriptValue replace(QScriptContext *context, QScriptEngine *)
{
    return textArgument(context, 0).replace(textArgument(context, 1), textArgument(context, 2));
}

QScriptValue toUpper(QScriptContext *context, QScriptEngine *)
{
    return textArgument(context, 0).toUpper();
}

QScriptValue toLower(QScriptContext *context, QScriptEngine *)
{
    return textArgument(context, 0).toLower();
}

QScriptValue words(QScriptContext *context, QScriptEngine *)
{
    return numberToWords(numberArgument(context, 1), textArgument(context, 0));
}

/// The first two decimals as a whole number; 100 for 0.999, since nothing is carried.
QScriptValue frac(QScriptContext *context, QScriptEngine *)
{
    const double x = numberArgument(context, 0);
    return whole((x - std::floor(x)) * 100.0 + 0.5);
}

QScriptValue floorOf(QScriptContext *context, QScriptEngine *)
{
    return whole(std::floor(numberArgument(context, 0)));
}

QScriptValue ceilOf(QScriptContext *context, QScriptEngine *)
{
    return whole(std::ceil(numberArgument(context, 0)));
}

/// Halves go up: 2.5 to 3, -2.5 to -2.
QScriptValue roundOf(QScriptContext *context, QScriptEngine *)
{
    const double x = numberArgument(context, 0);
    if (!(x < 0))
        return whole(x + 0.5);
    const double below = std::trunc(x - 1.0);
    return whole(std::trunc(x - below + 0.5) + below);
}

struct Function {
    const char *name;
    QScriptEngine::FunctionSignature call;
};

constexpr Function functions[] = {
    {"Sum", sum},   {"Replace", replace}, {"ToUpper", toUpper}, {"ToLower", toLower}, {"NumberToWords", words},
    {"Frac", frac}, {"Floor", floorOf},   {"Ceil", ceilOf},     {"Round", roundOf},
};

} // namespace

void addReportFunctions(QScriptEngine *engine, bool showInGroup)
{
    setShowInGroup(engine, showInGroup);
    QScriptValue global = engine->globalObject();
    for (const Function &function : functions)
        global.setProperty(QLatin1String(function.name), engine->newFunction(function.call),
                           QScriptValue::SkipInEnumeration);
}

void setShowInGroup(QScriptEngine *engine, bool showInGroup)
{
    engine->globalObject().setProperty(QStringLiteral("showInGroup"), showInGroup, QScriptValue::SkipInEnumeration);
}
