#include "exports/rowheight.h"

#include <QString>

namespace {

constexpr double lineHeight = 13;
constexpr double tallestRow = 409;

/// In digits.
double letterWidth(QChar letter)
{
    if (letter.isLowSurrogate())
        return 0;
    if (QLatin1String(" .,:;'!|()[]-Iijlftr").contains(letter))
        return 0.5;
    return QLatin1String("mwMW@%").contains(letter) ? 1.5 : 1;
}

/// Breaks a text into lines, letter by letter.
class LineBreaker {
public:
    explicit LineBreaker(double width)
        : m_width(width)
    {
    }

    int lines() const { return m_lines; }
    void add(QChar letter);

private:
    void breakLine(double carried);

    const double m_width;
    int m_lines = 1;
    double m_used = 0; ///< of the present line
    double m_word = 0; ///< of the word at its end
};

void LineBreaker::breakLine(double carried)
{
    ++m_lines;
    m_used = carried;
    m_word = carried;
}

void LineBreaker::add(QChar letter)
{
    if (letter == QLatin1Char('\n')) {
        breakLine(0);
        return;
    }
    const double width = letterWidth(letter);
    const bool isBlank = letter == QLatin1Char(' ');
    // Blanks may hang over the end. A word that fills a line by itself is broken within.
    if (!isBlank && m_used > 0 && m_used + width > m_width)
        breakLine(m_word + width > m_width ? 0 : m_word);
    m_used += width;
    m_word = isBlank ? 0 : m_word + width;
}

} // namespace

int lineCount(const QString &text, double width)
{
    LineBreaker breaker(width);
    for (const QChar letter : text)
        breaker.add(letter);
    return breaker.lines();
}

double rowHeight(int lines)
{
    return qMin(tallestRow, lines * lineHeight);
}
