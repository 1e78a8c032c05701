#include "report/rptharmlessscript.h"

#include <algorithm>
#include <iterator>

namespace {

/// Names that mean something else than a value, or that future engines may take so.
constexpr const char *reservedWords[] = {
    "abstract",  "arguments", "await",    "boolean",    "break",   "byte",         "case",       "catch",  "char",
    "class",     "const",     "continue", "debugger",   "default", "delete",       "do",         "double", "else",
    "enum",      "eval",      "export",   "extends",    "final",   "finally",      "float",      "for",    "function",
    "get",       "goto",      "if",       "implements", "import",  "in",           "instanceof", "int",    "interface",
    "let",       "long",      "native",   "new",        "package", "private",      "protected",  "public", "return",
    "set",       "short",     "static",   "super",      "switch",  "synchronized", "this",       "throw",  "throws",
    "transient", "try",       "typeof",   "var",        "void",    "volatile",     "while",      "with",   "yield",
};

/// Globals whose value is never changed, and whose calls change nothing.
constexpr const char *pureGlobals[] = {
    "Boolean", "Ceil",          "Floor",   "Frac",       "Infinity", "Math",        "NaN",
    "Number",  "NumberToWords", "Replace", "Round",      "String",   "Sum",         "ToLower",
    "ToUpper", "isFinite",      "isNaN",   "parseFloat", "parseInt", "showInGroup", "undefined",
};

/// Properties that lead neither to a constructor nor to a prototype, and whose calls change nothing. "random" is not
/// among them, since its answers follow from those before.
constexpr const char *pureProperties[] = {
    "E",          "LN10",        "LN2",         "PI",       "SQRT2",       "abs",         "ceil",    "charAt",
    "charCodeAt", "concat",      "exp",         "floor",    "indexOf",     "lastIndexOf", "length",  "log",
    "max",        "min",         "pow",         "round",    "slice",       "sqrt",        "substr",  "substring",
    "toFixed",    "toLowerCase", "toPrecision", "toString", "toUpperCase", "trim",        "valueOf",
};

template<std::size_t N> bool isAmong(const char *const (&names)[N], const QString &name)
{
    return std::any_of(std::begin(names), std::end(names),
                       [&](const char *known) { return name == QLatin1String(known); });
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isNameStart(QChar c)
{
    return c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char('$');
}

bool isOneOf(QChar c, const char *characters)
{
    return c.unicode() < 0x80 && c.unicode() != 0 && QLatin1String(characters).contains(QLatin1Char(c.toLatin1()));
}

/// Reads a script sign by sign. What it does not know ends it.
class Scanner {
public:
    Scanner(const QString &script, const std::function<bool(const QString &)> &isKnown)
        : m_at(script.constData())
        , m_end(m_at + script.size())
        , m_isKnown(isKnown)
    {
    }

    bool isHarmless()
    {
        while (m_at != m_end) {
            if (isOneOf(*m_at, " \t\n\r"))
                ++m_at;
            else if (!readSign())
                return false;
        }
        return true;
    }

private:
    bool readSign()
    {
        const QChar c = *m_at;
        if (isNameStart(c))
            return readName();
        if (isDigit(c) || (c == QLatin1Char('.') && isDigit(at(1))))
            return readNumber();
        if (c == QLatin1Char('\'') || c == QLatin1Char('"'))
            return readText();
        if (c == QLatin1Char('.'))
            return readProperty();
        if (isOneOf(c, "(),?:;~")) {
            m_isBehindOperand = c == QLatin1Char(')');
            ++m_at;
            return true;
        }
        return readOperator();
    }

    QChar at(int offset) const { return m_end - m_at > offset ? m_at[offset] : QChar(QLatin1Char(' ')); }

    QString takeName()
    {
        const QChar *const start = m_at;
        while (m_at != m_end && (isNameStart(*m_at) || isDigit(*m_at)))
            ++m_at;
        m_isBehindOperand = true;
        return QString(start, int(m_at - start));
    }

    bool readName()
    {
        const QString name = takeName();
        return !isAmong(reservedWords, name) && (isAmong(pureGlobals, name) || !m_isKnown(name));
    }

    bool readProperty()
    {
        ++m_at;
        while (isOneOf(at(0), " \t") && m_at != m_end)
            ++m_at;
        return isAmong(pureProperties, takeName());
    }

    /// Whole numbers and decimals. A letter behind them belongs to a number of another form, or to an error.
    bool readNumber()
    {
        while (isDigit(at(0)))
            ++m_at;
        if (at(0) == QLatin1Char('.'))
            ++m_at;
        while (isDigit(at(0)))
            ++m_at;
        m_isBehindOperand = true;
        return !isNameStart(at(0));
    }

    /// A text without end makes the whole script an error, which no engine even starts to run.
    bool readText()
    {
        const QChar quote = *m_at++;
        for (; m_at != m_end && *m_at != quote; ++m_at) {
            if (*m_at == QLatin1Char('\\') && ++m_at == m_end)
                return true;
            const ushort c = m_at->unicode();
            if (c < ' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
                return false;
        }
        if (m_at != m_end)
            ++m_at;
        m_isBehindOperand = true;
        return true;
    }

    /// Operators but those that assign. A slash divides only behind an operand, and must not start a comment.
    bool readOperator()
    {
        const QChar c = *m_at;
        if (isOneOf(c, "=!")) {
            const bool isComparison = at(1) == QLatin1Char('=');
            const int length = !isComparison ? 1 : at(2) == QLatin1Char('=') ? 3 : 2;
            m_at += length;
            m_isBehindOperand = false;
            return isComparison ? at(0) != QLatin1Char('=') : c == QLatin1Char('!');
        }
        if (!isOneOf(c, "+-*/%<>&|^"))
            return false;
        if (c == QLatin1Char('/') && (!m_isBehindOperand || isOneOf(at(1), "/*")))
            return false;
        int length = 1;
        while (isOneOf(c, "<>&|") && at(length) == c)
            ++length;
        m_isBehindOperand = false;
        m_at += length;
        if (at(0) == QLatin1Char('=')) { // "<=" and ">=" compare, every other sign assigns
            ++m_at;
            return length == 1 && isOneOf(c, "<>") && at(0) != QLatin1Char('=');
        }
        return !(isOneOf(c, "+-") && at(0) == c);
    }

    const QChar *m_at;
    const QChar *m_end;
    const std::function<bool(const QString &)> &m_isKnown;
    bool m_isBehindOperand = false;
};

} // namespace

bool isHarmlessScript(const QString &script, const std::function<bool(const QString &)> &isKnown)
{
    return Scanner(script, isKnown).isHarmless();
}
