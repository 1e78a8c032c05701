#include "models/wordfilter.h"

#include <algorithm>

namespace {

constexpr QLatin1Char anyCharacter('?');

/// A bracket, even a closing one alone, and a backslash mean more to the expression than a piece of text can say.
bool needsExpression(QChar character)
{
    return character == QLatin1Char('[') || character == QLatin1Char(']') || character == QLatin1Char('\\');
}

bool standsAt(const QChar *position, const QString &piece)
{
    return std::equal(piece.cbegin(), piece.cend(), position,
                      [](QChar wanted, QChar found) { return wanted == anyCharacter || wanted == found; });
}

/// First position of `piece` in `text` from `from` on, -1 when there is none.
int indexOf(const QString &text, const QString &piece, int from)
{
    if (!piece.contains(anyCharacter))
        return text.indexOf(piece, from);
    for (int position = from; position <= text.size() - piece.size(); ++position) {
        if (standsAt(text.constData() + position, piece))
            return position;
    }
    return -1;
}

} // namespace

WordFilter::WordFilter(const QString &searchText)
{
    if (searchText.isEmpty())
        return;
    const QStringList words = searchText.toLower().split(QLatin1Char(' '));
    for (const QString &word : words)
        m_words.append(compile(word));
}

bool WordFilter::accepts(const QString &text) const
{
    return std::all_of(m_words.cbegin(), m_words.cend(), [&text](const Word &word) { return isIn(text, word); });
}

WordFilter::Word WordFilter::compile(const QString &word)
{
    if (std::any_of(word.cbegin(), word.cend(), needsExpression))
        return {{}, QRegExp(QStringLiteral("*%1*").arg(word), Qt::CaseSensitive, QRegExp::Wildcard)};
    return {word.split(QLatin1Char('*'), Qt::SkipEmptyParts), {}};
}

bool WordFilter::isIn(const QString &text, const Word &word)
{
    if (!word.pattern.isEmpty())
        return word.pattern.exactMatch(text);
    // The leftmost place of each piece leaves the most room for those after it.
    int end = 0;
    return std::all_of(word.pieces.cbegin(), word.pieces.cend(), [&text, &end](const QString &piece) {
        const int start = indexOf(text, piece, end);
        end = start + piece.size();
        return start >= 0;
    });
}
