#include "report/rptconstantscript.h"

#include "report/rptconstantvalue.h"

#include <cmath>

using namespace RptConstant;

namespace {

constexpr int maxLength = 2000;
constexpr int maxDepth = 40;

bool isAsciiLetter(QChar c)
{
    const ushort lower = c.unicode() | 0x20;
    return lower >= 'a' && lower <= 'z';
}

enum class Operator {
    None,
    Or,
    And,
    Equal,
    NotEqual,
    Same,
    NotSame,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    Add,
    Subtract,
    Multiply,
    Divide,
    Modulo
};

struct OperatorSign {
    const char *sign;
    Operator value;
    int precedence;
};

/// Longer signs first, where one starts with the other.
constexpr OperatorSign operators[] = {
    {"||", Operator::Or, 1},        {"&&", Operator::And, 2},          {"===", Operator::Same, 3},
    {"!==", Operator::NotSame, 3},  {"==", Operator::Equal, 3},        {"!=", Operator::NotEqual, 3},
    {"<=", Operator::LessEqual, 4}, {">=", Operator::GreaterEqual, 4}, {"<", Operator::Less, 4},
    {">", Operator::Greater, 4},    {"+", Operator::Add, 5},           {"-", Operator::Subtract, 5},
    {"*", Operator::Multiply, 6},   {"/", Operator::Divide, 6},        {"%", Operator::Modulo, 6},
};
constexpr OperatorSign noOperator = {"", Operator::None, 0};

/// A parser by operator precedence that evaluates as it reads. Both sides of && and || and all three parts of ?: are
/// evaluated, which nothing can tell. Once it is uncertain it stands at the end, and its values mean nothing.
class Parser {
public:
    explicit Parser(const QString &script)
        : m_at(script.constData())
        , m_end(m_at + script.size())
    {
        if (script.size() > maxLength)
            giveUp();
    }

    std::optional<Value> run()
    {
        const Value value = conditional();
        skipBlanks();
        if (m_at != m_end)
            giveUp();
        return m_isCertain ? std::optional<Value>(value) : std::nullopt;
    }

private:
    Value conditional();
    Value binary(int precedence);
    Value unary();
    Value primary();
    Value numeral();
    Value quotedText(QChar quote);
    Value word();
    Value parenthesis();
    OperatorSign peekOperator();
    Value apply(Operator sign, const Value &left, const Value &right);
    Value compare(Operator sign, const Value &left, const Value &right);
    Value sum(const Value &left, const Value &right);
    bool isLooselyEqual(const Value &left, const Value &right);

    Value giveUp()
    {
        m_isCertain = false;
        m_at = m_end;
        return {};
    }

    double toNumber(const Value &value)
    {
        const std::optional<double> result = numberOf(value);
        if (!result)
            giveUp();
        return result.value_or(0);
    }

    void skipBlanks()
    {
        while (m_at != m_end && isBlank(*m_at))
            ++m_at;
    }

    bool isAt(char c) const { return m_at != m_end && *m_at == QLatin1Char(c); }
    bool isFollowedBy(char c) const { return m_at + 1 < m_end && m_at[1] == QLatin1Char(c); }

    const QChar *m_at;
    const QChar *m_end;
    bool m_isCertain = true;
    int m_depth = 0;
};

Value Parser::conditional()
{
    if (++m_depth > maxDepth)
        return giveUp();
    Value value = binary(1);
    skipBlanks();
    if (isAt('?')) {
        ++m_at;
        const Value whenTrue = conditional();
        skipBlanks();
        if (!isAt(':'))
            return giveUp();
        ++m_at;
        const Value whenFalse = conditional();
        value = isTrue(value) ? whenTrue : whenFalse;
    }
    --m_depth;
    return value;
}

Value Parser::binary(int precedence)
{
    Value left = unary();
    for (;;) {
        const OperatorSign next = peekOperator();
        if (next.value == Operator::None || next.precedence < precedence)
            return left;
        m_at += qstrlen(next.sign);
        left = apply(next.value, left, binary(next.precedence + 1));
    }
}

OperatorSign Parser::peekOperator()
{
    skipBlanks();
    for (const OperatorSign &candidate : operators) {
        const uint length = qstrlen(candidate.sign);
        if (m_end - m_at < int(length))
            continue;
        bool isIt = true;
        for (uint i = 0; i < length && isIt; ++i)
            isIt = m_at[i] == QLatin1Char(candidate.sign[i]);
        if (!isIt)
            continue;
        // "++", "+=", "<<", "//", "/*" and their like are other signs than the one that they start with.
        const QChar behind = m_at + length == m_end ? QChar(QLatin1Char(' ')) : m_at[length];
        const bool isOtherSign = behind == QLatin1Char('=') || (length == 1 && behind == QLatin1Char(candidate.sign[0]))
            || (candidate.value == Operator::Divide && behind == QLatin1Char('*'));
        if (!isOtherSign)
            return candidate;
        giveUp();
    }
    return noOperator;
}

Value Parser::unary()
{
    skipBlanks();
    const bool isSign = isAt('-') || isAt('+');
    if (!isSign && !isAt('!'))
        return primary();
    const char sign = m_at->toLatin1();
    if (++m_depth > maxDepth || (isSign && isFollowedBy(sign)))
        return giveUp();
    ++m_at;
    const Value operand = unary();
    --m_depth;
    if (sign == '!')
        return boolean(!isTrue(operand));
    const double value = toNumber(operand);
    return number(sign == '-' ? -value : value);
}

Value Parser::primary()
{
    if (m_at == m_end)
        return giveUp();
    const QChar first = *m_at;
    if (isDigit(first) || first == QLatin1Char('.'))
        return numeral();
    if (first == QLatin1Char('\'') || first == QLatin1Char('"'))
        return quotedText(first);
    if (first == QLatin1Char('('))
        return parenthesis();
    return word();
}

Value Parser::numeral()
{
    if (isAt('0') && m_at + 1 != m_end && isDigit(m_at[1])) // octal
        return giveUp();
    const std::optional<double> value = readDecimal(m_at, m_end);
    const QChar behind = m_at == m_end ? QChar(QLatin1Char(' ')) : *m_at;
    if (!value || behind.isLetterOrNumber() || behind.unicode() > 0x7f || QStringLiteral("._$\\").contains(behind))
        return giveUp();
    return number(*value);
}

Value Parser::quotedText(QChar quote)
{
    const QChar *const start = ++m_at;
    while (m_at != m_end && *m_at != quote) {
        const ushort c = m_at->unicode();
        if (c < ' ' || c == '\\' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            return giveUp();
        ++m_at;
    }
    if (m_at == m_end)
        return giveUp();
    return RptConstant::text(QString(start, int(m_at++ - start)));
}

Value Parser::word()
{
    const QChar *const start = m_at;
    while (m_at != m_end && isAsciiLetter(*m_at))
        ++m_at;
    const QChar behind = m_at == m_end ? QChar(QLatin1Char(' ')) : *m_at;
    if (behind.isLetterOrNumber() || behind.unicode() > 0x7f || QStringLiteral("._$\\").contains(behind))
        return giveUp();
    const QString name = QString::fromRawData(start, int(m_at - start));
    if (name == QLatin1String("true"))
        return boolean(true);
    return name == QLatin1String("false") ? boolean(false) : giveUp();
}

Value Parser::parenthesis()
{
    ++m_at;
    const Value value = conditional();
    skipBlanks();
    if (!isAt(')'))
        return giveUp();
    ++m_at;
    return value;
}

Value Parser::apply(Operator sign, const Value &left, const Value &right)
{
    switch (sign) {
    case Operator::Or:
        return isTrue(left) ? left : right;
    case Operator::And:
        return isTrue(left) ? right : left;
    case Operator::Equal:
        return boolean(isLooselyEqual(left, right));
    case Operator::NotEqual:
        return boolean(!isLooselyEqual(left, right));
    case Operator::Same:
        return boolean(left.kind == right.kind && isLooselyEqual(left, right));
    case Operator::NotSame:
        return boolean(left.kind != right.kind || !isLooselyEqual(left, right));
    case Operator::Less:
    case Operator::Greater:
    case Operator::LessEqual:
    case Operator::GreaterEqual:
        return compare(sign, left, right);
    case Operator::Add:
        return sum(left, right);
    case Operator::Subtract:
        return number(toNumber(left) - toNumber(right));
    case Operator::Multiply:
        return number(toNumber(left) * toNumber(right));
    case Operator::Divide:
        return number(toNumber(left) / toNumber(right));
    case Operator::Modulo:
        return number(std::fmod(toNumber(left), toNumber(right)));
    case Operator::None:
        break;
    }
    return giveUp();
}

bool Parser::isLooselyEqual(const Value &left, const Value &right)
{
    if (left.kind == Value::Text && right.kind == Value::Text)
        return left.text == right.text;
    return toNumber(left) == toNumber(right);
}

/// Two texts compare by their code units, anything else as numbers.
Value Parser::compare(Operator sign, const Value &left, const Value &right)
{
    const bool areTexts = left.kind == Value::Text && right.kind == Value::Text;
    const double a = areTexts ? left.text.compare(right.text) : toNumber(left);
    const double b = areTexts ? 0 : toNumber(right);
    if (sign == Operator::Less)
        return boolean(a < b);
    if (sign == Operator::Greater)
        return boolean(a > b);
    return boolean(sign == Operator::LessEqual ? a <= b : a >= b);
}

Value Parser::sum(const Value &left, const Value &right)
{
    if (left.kind != Value::Text && right.kind != Value::Text)
        return number(left.number + right.number);
    const std::optional<QString> first = textOf(left);
    const std::optional<QString> second = textOf(right);
    return first && second ? RptConstant::text(*first + *second) : giveUp();
}

} // namespace

namespace RptConstantScript {

std::optional<QString> text(const QString &script)
{
    const std::optional<Value> value = Parser(script).run();
    return value ? textOf(*value) : std::nullopt;
}

std::optional<double> wholeNumber(const QString &script)
{
    const std::optional<Value> value = Parser(script).run();
    const std::optional<double> result = value ? numberOf(*value) : std::nullopt;
    if (!result)
        return std::nullopt;
    return std::isnan(*result) ? 0 : std::trunc(*result);
}

} // namespace RptConstantScript
