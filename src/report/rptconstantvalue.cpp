#include "report/rptconstantvalue.h"

#include <cmath>
#include <limits>

namespace RptConstant {

namespace {

constexpr int maxDigits = 15; // up to here a decimal number and a double name each other

std::optional<double> numberOfText(const QString &text)
{
    const QChar *at = text.constData();
    const QChar *end = at + text.size();
    while (at != end && isBlank(*at))
        ++at;
    while (end != at && isBlank(*(end - 1)))
        --end;
    if (at == end)
        return 0.0;
    if (at->isLetter() && *at != QLatin1Char('I')) // "Infinity" is a number
        return std::numeric_limits<double>::quiet_NaN();
    const bool isNegative = *at == QLatin1Char('-');
    if (isNegative || *at == QLatin1Char('+'))
        ++at;
    const std::optional<double> value = readDecimal(at, end);
    if (!value || at != end)
        return std::nullopt;
    return isNegative ? -*value : *value;
}

std::optional<QString> textOfNumber(double value)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
    const double size = std::abs(value);
    if (value == std::trunc(value) && size < 1e15)
        return QString::number(static_cast<qint64>(value)); // 0 has no sign
    if (size < 1e-4 || size >= 1e15)
        return std::nullopt;
    const QString text = QString::number(value, 'g', maxDigits);
    return text.toDouble() == value ? std::optional<QString>(text) : std::nullopt;
}

} // namespace

Value boolean(bool value)
{
    return {Value::Boolean, value ? 1.0 : 0.0, QString()};
}

Value number(double value)
{
    return {Value::Number, value, QString()};
}

Value text(const QString &value)
{
    return {Value::Text, 0, value};
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

/// The digits are exact in a double and so is the power of ten, hence their quotient is the nearest double.
std::optional<double> readDecimal(const QChar *&at, const QChar *end)
{
    double digits = 0;
    double scale = 1;
    int count = 0;
    bool isBehindPoint = false;
    for (; at != end; ++at) {
        if (*at == QLatin1Char('.') && !isBehindPoint) {
            isBehindPoint = true;
        } else if (isDigit(*at)) {
            digits = digits * 10 + at->digitValue();
            scale *= isBehindPoint ? 10 : 1;
            ++count;
        } else {
            break;
        }
    }
    if (count == 0 || count > maxDigits)
        return std::nullopt;
    return digits / scale;
}

std::optional<double> numberOf(const Value &value)
{
    return value.kind == Value::Text ? numberOfText(value.text) : value.number;
}

std::optional<QString> textOf(const Value &value)
{
    switch (value.kind) {
    case Value::Boolean:
        return value.number != 0 ? QStringLiteral("true") : QStringLiteral("false");
    case Value::Number:
        return textOfNumber(value.number);
    case Value::Text:
        break;
    }
    return value.text;
}

bool isTrue(const Value &value)
{
    return value.kind == Value::Text ? !value.text.isEmpty() : value.number != 0 && !std::isnan(value.number);
}

} // namespace RptConstant
