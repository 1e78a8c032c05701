#include "report/numberstowords.h"

#include "report/numberwords/languages.h"
#include "report/numberwords/scales.h"

using namespace NumberWords;

namespace {

struct Language {
    const char *key;
    QString (*spell)(double value);
};

/// The value without its decimals; -1, which has no word, when it does not fit.
int cutToInt(double value)
{
    return value < end32 ? static_cast<int>(value) : -1;
}

constexpr Language languages[] = {
    {"UKR", [](double value) { return spellUkrainian(value, false); }},
    {"GER", [](double value) { return spellGerman(value, false); }},
    {"ENG", spellEnglish},
    {"ESP", [](double value) { return spellSpanish(value, false); }},
    {"FR_FR", [](double value) { return spellFrench(cutToInt(value), France); }},
    {"FR_BE", [](double value) { return spellFrench(cutToInt(value), Belgium); }},
    {"FR_CH", [](double value) { return spellFrench(cutToInt(value), Switzerland); }},
    {"ITA", spellItalian},
    {"AR", [](double value) { return NumberToArabicWord(value).spell(); }},
};

} // namespace

QString numberToWords(double value, const QString &language)
{
    if (!isSpellable(value))
        return QString();
    for (const Language &known : languages) {
        if (language == QLatin1String(known.key))
            return known.spell(value);
    }
    return spellEnglish(value);
}
