#include "report/numberwords/languages.h"
#include "report/numberwords/scales.h"

namespace NumberWords {

namespace {

constexpr SmallNumbers words = {
    {"zero",     "one",     "two",     "three",     "four",     "five",     "six",
     "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",   "thirteen",
     "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen", "twenty"},
    {"thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"},
};

constexpr Scale scales[] = {{1e2, "hundred"}, {1e3, "thousand"}, {1e6, "million"}, {1e9, "billion"}};

} // namespace

QString spellEnglish(double value)
{
    if (value < 21)
        return wordUpToTwenty(words, value);
    if (value < 100) {
        const int number = static_cast<int>(value);
        const int units = number % 10;
        const QString tens = wordOfTens(words, number / 10);
        return units == 0 ? tens : tens + QLatin1Char('-') + spellEnglish(units);
    }
    const Scale &scale = *scaleOf(scales, value);
    QString text = spellEnglish(quotientOf(value, scale)) + QLatin1Char(' ') + QString::fromUtf8(scale.word);
    const double rest = restOf(value, scale, end32);
    if (rest > 0)
        text += QLatin1Char(' ') + spellEnglish(rest);
    return text;
}

} // namespace NumberWords
