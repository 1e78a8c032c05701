#include "report/numberwords/languages.h"
#include "report/numberwords/scales.h"

namespace NumberWords {

namespace {

// "diciasette" is spelled on purpose as printed reports have always shown it.
constexpr SmallNumbers words = {
    {"zero",        "uno",      "due",    "tre",        "quattro",  "cinque",     "sei",
     "sette",       "otto",     "nove",   "dieci",      "undici",   "dodici",     "tredici",
     "quattordici", "quindici", "sedici", "diciasette", "diciotto", "diciannove", "venti"},
    {"trenta", "quaranta", "cinquanta", "sessanta", "settanta", "ottanta", "novanta"},
};

// The blanks stay where a number ends with its scale word: 2000 is "duemila " with a blank behind.
constexpr Scale scales[] = {{1e2, "cento"}, {1e3, "mila "}, {1e6, " milioni "}, {1e9, " miliardi "}};

/// The scale word and the number of times it is counted.
QString countedScale(double value, const Scale &scale)
{
    if (value < 2 * scale.size) {
        if (scale.size == 1e2)
            return QString::fromUtf8(scale.word);
        if (scale.size == 1e3)
            return QStringLiteral("mille");
        if (scale.size == 1e6)
            return QStringLiteral("un milione ");
        return QStringLiteral("un miliardo ");
    }
    return spellItalian(quotientOf(value, scale)) + QString::fromUtf8(scale.word);
}

} // namespace

QString spellItalian(double value)
{
    if (value < 21)
        return wordUpToTwenty(words, value);
    if (value < 100) {
        const int number = static_cast<int>(value);
        const int units = number % 10;
        QString tens = wordOfTens(words, number / 10);
        if (units == 0)
            return tens;
        if (units == 1 || units == 8)
            tens.chop(1); // before a vowel: ventuno, ventotto
        return tens + spellItalian(units);
    }
    const Scale &scale = *scaleOf(scales, value);
    QString text = countedScale(value, scale);
    const double rest = restOf(value, scale, end64);
    if (rest > 0)
        text += spellItalian(rest);
    return text;
}

} // namespace NumberWords
