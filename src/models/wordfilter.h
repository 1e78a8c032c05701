#pragma once

#include <QRegExp>
#include <QString>
#include <QStringList>
#include <QVector>

/// A search text of several words, compiled once and asked for many rows.
///
/// The text is lower-cased and split at each single blank, empty parts kept. Each word is a wildcard pattern (of
/// `QRegExp::Wildcard`) between two asterisks: `*`, `?` and `[...]` are live, and an opening bracket without its
/// closing one matches nothing. A row is accepted when every word is found in it, in any order; an empty search text
/// accepts every row.
class WordFilter {
public:
    WordFilter() = default;
    explicit WordFilter(const QString &searchText);

    /// Whether there is no search text, so that no row need be asked.
    bool isEmpty() const { return m_words.isEmpty(); }
    /// Whether every word is found in `text`, which must be lower-case already.
    bool accepts(const QString &text) const;

private:
    /// A regular expression over ten thousand rows takes a tenth of a second and more, too long for a keystroke. Words
    /// of letters, `*` and `?` are therefore searched piece by piece, with the same result; only a word with a bracket
    /// or a backslash goes through the expression.
    struct Word {
        QStringList pieces; ///< what stands between the asterisks, in order; `?` is any character
        QRegExp pattern; ///< set instead of the pieces when the word needs it
    };

    static Word compile(const QString &word);
    static bool isIn(const QString &text, const Word &word);

    QVector<Word> m_words;
};
