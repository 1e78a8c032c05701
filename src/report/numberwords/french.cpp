#include "report/numberwords/languages.h"
#include "report/numberwords/scales.h"

namespace NumberWords {

namespace {

constexpr const char *belowTwenty[] = {
    "zéro", "un",   "deux",  "trois",  "quatre",   "cinq",   "six",   "sept",     "huit",     "neuf",
    "dix",  "onze", "douze", "treize", "quatorze", "quinze", "seize", "dix-sept", "dix-huit", "dix-neuf",
};

/// 20 to 90, a row for each FrenchVariant.
constexpr const char *tensWords[3][8] = {
    {"vingt", "trente", "quarante", "cinquante", "soixante", "soixante-dix", "quatre-vingt", "quatre-vingt-dix"},
    {"vingt", "trente", "quarante", "cinquante", "soixante", "septante", "quatre-vingt", "nonante"},
    {"vingt", "trente", "quarante", "cinquante", "soixante", "septante", "huitante", "nonante"},
};

constexpr Scale scales[] = {{1e3, "mille"}, {1e6, "million"}, {1e9, "milliard"}};

QString spellBelowHundred(int n, FrenchVariant variant)
{
    int tens = n / 10;
    int units = n % 10;
    if (variant == France && units != 0 && (tens == 7 || tens == 9)) { // 71 is sixty and eleven
        --tens;
        units += 10;
    }
    const QString word = QString::fromUtf8(tensWords[variant][tens - 2]);
    if (n == 80 && variant != Switzerland)
        return word + QLatin1Char('s');
    return units == 0 ? word : word + QLatin1Char('-') + spellFrench(units, variant);
}

QString spellHundreds(int n, FrenchVariant variant)
{
    const int hundreds = n / 100;
    const int rest = n % 100;
    // A single hundred always spells what follows, so 100 is "cent-zéro"; printed reports have always shown it.
    if (hundreds == 1)
        return QStringLiteral("cent-") + spellFrench(rest, variant);
    const QString count = QString::fromUtf8(belowTwenty[hundreds]);
    return rest == 0 ? count + QStringLiteral("-cents") : count + QStringLiteral("-cent-") + spellFrench(rest, variant);
}

/// From 999 up. No scale applies to 999, so it has no text, alone and as the part of a larger number; and the hyphen
/// behind a scale word stays when nothing follows, as in "mille-". Printed reports have always shown both.
QString spellScales(int n, FrenchVariant variant)
{
    const Scale *const scale = scaleOf(scales, n);
    if (!scale)
        return QString();
    const int size = static_cast<int>(scale->size);
    const int quotient = n / size;
    const bool thousands = size == 1000;
    const QString word = QString::fromUtf8(scale->word);
    QString text;
    if (quotient == 1)
        text = (thousands ? word : QStringLiteral("un-") + word) + QLatin1Char('-');
    else
        text = spellFrench(quotient, variant) + QLatin1Char('-') + word
            + (thousands ? QStringLiteral("-") : QStringLiteral("s-"));
    const int rest = n % size;
    if (rest > 0)
        text += spellFrench(rest, variant);
    return text;
}

} // namespace

QString spellFrench(int n, FrenchVariant variant)
{
    // The form of "vingt-et-un" serves 1 alone as well; printed reports have always shown it.
    if (n == 1)
        return QStringLiteral("et-un");
    if (n < 20)
        return n < 0 ? QString() : QString::fromUtf8(belowTwenty[n]);
    if (n < 100)
        return spellBelowHundred(n, variant);
    return n < 999 ? spellHundreds(n, variant) : spellScales(n, variant);
}

} // namespace NumberWords
