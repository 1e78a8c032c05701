#include "report/numberwords/languages.h"
#include "report/numberwords/scales.h"

#include <algorithm>

namespace NumberWords {

namespace {

constexpr SmallNumbers words = {
    {"cero ",    "uno ",    "dos ",         "tres ",         "cuatro ",      "cinco ",        "seis ",
     "siete ",   "ocho ",   "nueve ",       "diez ",         "once ",        "doce ",         "trece ",
     "catorce ", "quince ", "diez y seis ", "diez y siete ", "diez y ocho ", "diez y nueve ", "veinte "},
    {"treinta ", "cuarenta ", "cincuenta ", "sesenta ", "setenta ", "ochenta ", "noventa "},
};

struct GroupScale {
    const char *singular;
    const char *plural;
};

/// The scale words of the five groups of three digits, the highest first. "billónes" is spelled on purpose as printed
/// reports have always shown it.
constexpr GroupScale groupScales[] = {
    {"billón ", "billónes "}, {"millardo ", "millardos "}, {"millón ", "millones "}, {"mil ", "mil "}, {"", ""},
};
constexpr int unitsGroup = 4;
constexpr double endOfGroups = 1e15;

QString smallWord(int number)
{
    return QString::fromUtf8(words.upToTwenty[number]);
}

/// `number` is the value of the group, 1 to 999. A digit 0 adds no word.
QString spellSpanishGroup(int group, int number)
{
    const int hundreds = number / 100;
    const int tens = number / 10 % 10;
    const int units = number % 10;
    QString text;
    if (hundreds == 1)
        text = number == 100 ? QStringLiteral("cien ") : QStringLiteral("ciento ");
    else if (hundreds > 1)
        text = smallWord(hundreds) + QStringLiteral("cientos ");
    if (tens == 1)
        return text + smallWord(10 + units);
    if (tens > 1)
        text += wordOfTens(words, tens) + (units == 0 ? QString() : QStringLiteral("y "));
    if (units == 1 && group != unitsGroup)
        return text + QStringLiteral("un "); // before a scale word
    return units == 0 ? text : text + smallWord(units);
}

/// The two first decimals as a number of 0 to 99.
int centsOf(double value)
{
    constexpr double underBinaryNoise = 1e-6; // 0.29 x 100 is 28.999999999999996
    return std::min(99, static_cast<int>((value - std::floor(value)) * 100 + underBinaryNoise));
}

} // namespace

QString spellSpanish(double value, bool withCents)
{
    if (value >= endOfGroups)
        return QString();
    const auto whole = static_cast<qint64>(value);
    QString text;
    // A group of zeros is left out, and with it the whole text of the number 0.
    qint64 size = 1000000000000;
    for (int group = 0; group <= unitsGroup; ++group, size /= 1000) {
        const int number = static_cast<int>(whole / size % 1000);
        if (number == 0)
            continue;
        const GroupScale &scale = groupScales[group];
        text += spellSpanishGroup(group, number) + QString::fromUtf8(number == 1 ? scale.singular : scale.plural);
    }
    const int cents = centsOf(value);
    if (withCents && cents > 0)
        text += QStringLiteral("con ") + spellSpanish(cents, false);
    return text;
}

} // namespace NumberWords
