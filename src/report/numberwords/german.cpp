#include "report/numberwords/languages.h"
#include "report/numberwords/scales.h"

namespace NumberWords {

namespace {

// "dreissig" and "sechszig" are spelled on purpose as printed reports have always shown them.
constexpr SmallNumbers words = {
    {"null",     "ein",      "zwei",     "drei",     "vier",     "fünf",     "sechs",
     "sieben",   "acht",     "neun",     "zehn",     "elf",      "zwölf",    "dreizehn",
     "vierzehn", "fünfzehn", "sechzehn", "siebzehn", "achtzehn", "neunzehn", "zwanzig"},
    {"dreissig", "vierzig", "fünfzig", "sechszig", "siebzig", "achtzig", "neunzig"},
};

constexpr Scale scales[] = {{1e2, "hundert"}, {1e3, "tausend"}, {1e6, "millionen"}, {1e9, "milliarden"}};

QString scaleWord(const Scale &scale, double value)
{
    // A single million or milliard: the "e" makes "eine" of the "ein" before it.
    if (scale.size == 1e6 && value < 2e6)
        return QStringLiteral("emillion");
    if (scale.size == 1e9 && value < 2e9)
        return QStringLiteral("emilliarde");
    return QString::fromUtf8(scale.word);
}

} // namespace

QString spellGerman(double value, bool inner)
{
    if (value == 1 && !inner)
        return QStringLiteral("eins");
    if (value < 21)
        return wordUpToTwenty(words, value);
    if (value < 100) {
        const int number = static_cast<int>(value);
        const int units = number % 10;
        const QString tens = wordOfTens(words, number / 10);
        return units == 0 ? tens : spellGerman(units, true) + QStringLiteral("und") + tens;
    }
    const Scale &scale = *scaleOf(scales, value);
    QString text = spellGerman(quotientOf(value, scale), true) + scaleWord(scale, value);
    const double rest = restOf(value, scale, end64);
    if (rest > 0)
        text += spellGerman(rest, true);
    return text;
}

} // namespace NumberWords
