#include "report/numberwords/languages.h"

namespace NumberWords {

namespace {

constexpr const char *masculineUnits[] = {
    "ноль ", "один ", "два ", "три ", "чотири ", "п'ять ", "шість ", "сім ", "вісім ", "дев'ять ",
};
constexpr const char *feminineUnits[] = {
    "ноль ", "одна ", "дві ", "три ", "чотири ", "п'ять ", "шість ", "сім ", "вісім ", "дев'ять ",
};
constexpr const char *teens[] = {
    "десять ",      "одинадцять ",  "дванадцять ", "тринадцять ",   "чотирнадцять ",
    "п'ятнадцять ", "шістнадцять ", "сімнадцять ", "вісімнадцять ", "дев'ятнадцять ",
};
/// 20 to 90.
constexpr const char *tensWords[] = {
    "двадцять ", "тридцять ", "сорок ", "п'ятдесят ", "шістдесят ", "сімдесят ", "вісімдесят ", "дев'яносто ",
};
/// 100 to 900.
constexpr const char *hundredsWords[] = {
    "сто ", "двісти ", "триста ", "чотириста ", "п'ятсот ", "шістсот ", "сімсот ", "вісімсот ", "дев'ятсот ",
};

/// What a level counts: one of it, two to four, more.
struct Forms {
    const char *one;
    const char *few;
    const char *many;
};

/// Level 0 counts kopecks, every further level a thousand times the one below it, from hryvnias on. "мілльон",
/// "мильони" and "мілліард" are spelled on purpose as printed reports have always shown them.
constexpr Forms levels[] = {
    {"копійка", "копійки", "копійок"}, // hundredths
    {"гривня, ", "гривні, ", "гривень, "}, // ones
    {"тисяча ", "тисячі ", "тисяч "}, // thousands
    {"мілльон ", "мильони ", "мільонів "}, // millions
    {"мілліард ", "мільярди ", "мільярдів "}, // milliards
};
constexpr int levelCount = 5;
constexpr int kopecks = 0;
constexpr int hryvnias = 1;
constexpr int thousands = 2;

constexpr double endOfWholeNumbers = 9007199254740992.0; // 2^53; thousandths of what is below it fit 64 bits

QString unitsForm(int group, int level, bool stem)
{
    if (level >= levelCount || (stem && level <= hryvnias))
        return QString();
    const int units = group % 10;
    const bool teen = group / 10 % 10 == 1;
    const Forms &forms = levels[level];
    const char *form = forms.many;
    if (!teen && units == 1)
        form = forms.one;
    else if (!teen && units >= 2 && units <= 4)
        form = forms.few;
    return QString::fromUtf8(form);
}

/// The words of 0 to 999; a digit 0 adds none.
QString groupWords(int group, bool feminine)
{
    const int units = group % 10;
    const int tens = group / 10 % 10;
    const int hundreds = group / 100;
    QString text;
    if (hundreds > 0)
        text = QString::fromUtf8(hundredsWords[hundreds - 1]);
    if (tens == 1)
        return text + QString::fromUtf8(teens[units]);
    if (tens > 1)
        text += QString::fromUtf8(tensWords[tens - 2]);
    if (units > 0)
        text += QString::fromUtf8((feminine ? feminineUnits : masculineUnits)[units]);
    return text;
}

/// Kopecks are written as two digits. 100 of them, which 0.995 is rounded to, read "00" and add nothing to the
/// hryvnias; printed reports have always shown it.
QString kopeckText(int group, bool stem)
{
    return QString::number(group / 10 % 10) + QString::number(group % 10) + QLatin1Char(' ')
        + unitsForm(group, kopecks, stem);
}

} // namespace

QString spellUkrainian(double value, bool stem)
{
    if (value >= endOfWholeNumbers)
        return QString();
    // The third decimal rounds the kopecks, which take the place of three digits: 21.055 is 21 006.
    const qint64 thousandths = static_cast<qint64>(value * 1000) % 1000;
    qint64 number = static_cast<qint64>(value) * 1000 + (thousandths + 5) / 10;

    QString text = kopeckText(static_cast<int>(number % 1000), stem);
    number /= 1000;
    for (int level = hryvnias; number != 0 || level == hryvnias; ++level) {
        const int group = static_cast<int>(number % 1000);
        number /= 1000;
        const QString zero =
            level == hryvnias && group == 0 && number == 0 ? QString::fromUtf8(masculineUnits[0]) : QString();
        // A level of zeros keeps its bare form, so a million is "один мілльон тисяч гривень"; printed reports have
        // always shown it.
        text = zero + groupWords(group, level <= thousands) + unitsForm(group, level, stem) + text;
    }
    return text.at(0).toUpper() + text.mid(1); // never empty: there is a form of hryvnias and of kopecks
}

} // namespace NumberWords
