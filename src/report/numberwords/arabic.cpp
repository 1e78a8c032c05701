#include "report/numberstowords.h"
#include "report/numberwords/scales.h"

#include <algorithm>

namespace {

/// 1 to 19.
constexpr const char *ones[] = {
    "",          "واحد",     "اثنان",   "ثلاثة",    "أربعة",      "خمسة",     "ستة",
    "سبعة",      "ثمانية",   "تسعة",    "عشرة",     "أحد عشر",    "اثنا عشر", "ثلاثة عشر",
    "أربعة عشر", "خمسة عشر", "ستة عشر", "سبعة عشر", "ثمانية عشر", "تسعة عشر",
};
/// 20 to 90.
constexpr const char *tensWords[] = {
    "عشرون", "ثلاثون", "أربعون", "خمسون", "ستون", "سبعون", "ثمانون", "تسعون",
};
/// 100 to 900.
constexpr const char *hundredsWords[] = {
    "", "مائة", "مئتان", "ثلاثمائة", "أربعمائة", "خمسمائة", "ستمائة", "سبعمائة", "ثمانمائة", "تسعمائة",
};
/// The scale words by group index: thousand, million, milliard, trillion, quadrillion, quintillion, sextillion.
/// Index 0 of the two dual lists is two hundred.
constexpr const char *dualFull[] = {
    "مئتان", "ألفان", "مليونان", "ملياران", "تريليونان", "كوادريليونان", "كوينتليونان", "سكستيليونان",
};
constexpr const char *dualShort[] = {
    "مئتان", "ألفا", "مليونا", "مليارا", "تريليونا", "كوادريليونا", "كوينتليونا", "سكستيليونا",
};
constexpr const char *singular[] = {
    "", "ألف", "مليون", "مليار", "تريليون", "كوادريليون", "كوينتليون", "سكستيليون",
};
constexpr const char *accusative[] = {
    "", "ألفاً", "مليوناً", "ملياراً", "تريليوناً", "كوادريليوناً", "كوينتليوناً", "سكستيليوناً",
};
constexpr const char *plural[] = {
    "", "آلاف", "ملايين", "مليارات", "تريليونات", "كوادريليونات", "كوينتليونات", "سكستيليونات",
};

/// The values that take the short dual.
constexpr quint64 exactTwos[] = {
    2000, 2000000, 2000000000, 2000000000000, 2000000000000000, 2000000000000000000,
};

constexpr int fractionIndex = -1;
constexpr int unitsIndex = 0;

/// Empty beyond the list: a group above the sextillions, and decimals of more than three digits.
template<std::size_t count> QString wordAt(const char *const (&list)[count], int index)
{
    return index < static_cast<int>(count) ? QString::fromUtf8(list[index]) : QString();
}

void join(QString &text, const QString &word)
{
    if (!text.isEmpty())
        text += QStringLiteral(" و ");
    text += word;
}

/// `text` with the scale word of the group in front of it.
QString withScaleWord(int group, int groupIndex, const QString &text)
{
    QString word;
    if (group >= 3 && group <= 10)
        word = wordAt(plural, groupIndex);
    else if (text.isEmpty())
        word = wordAt(singular, groupIndex);
    else
        word = wordAt(accusative, groupIndex);
    return word + QLatin1Char(' ') + text;
}

} // namespace

NumberToArabicWord::NumberToArabicWord(double value, QObject *parent)
    : QObject(parent)
    , m_value(value)
{
    const QStringList parts = QString::number(value, 'g', 6).split(QLatin1Char('.'), Qt::SkipEmptyParts);
    m_integerValue = parts.at(0).toULongLong();
    if (parts.size() > 1)
        m_fractionValue = parts.at(1).toInt();
}

QString NumberToArabicWord::spell() const
{
    if (!NumberWords::isSpellable(m_value))
        return QString();
    if (m_value == 0)
        return QStringLiteral("صفر");
    if (m_value == 1 || m_value == 2)
        return wordAt(ones, static_cast<int>(m_value));
    const QString text = spellWholePart();
    return m_fractionValue == 0 ? text : text + QStringLiteral(" و ") + spellGroup(m_fractionValue, fractionIndex, 0);
}

/// The groups of three digits from the lowest up, each put in front of the text so far with a blank between. The blank
/// stays behind the lowest group, where there is no text yet.
QString NumberToArabicWord::spellWholePart() const
{
    QString text;
    double value = m_value;
    for (int index = unitsIndex; value >= 1; ++index) {
        const int group = static_cast<int>(std::fmod(std::floor(value), 1000));
        value /= 1000;
        const QString words = spellGroup(group, index, std::floor(value));
        if (words.isEmpty())
            continue;
        if (index > unitsIndex) {
            if (!text.isEmpty())
                text.prepend(QStringLiteral("و "));
            const bool namesItsScale = group == 2 || group % 100 == 1;
            if (!namesItsScale)
                text = withScaleWord(group, index, text);
        }
        text.prepend(words + QLatin1Char(' '));
    }
    return text;
}

/// `group` is 0 to 999, `groupIndex` -1 for the decimals, 0 for the units, 1 for the thousands and so on, `rest` what
/// lies above the group.
QString NumberToArabicWord::spellGroup(int group, int groupIndex, double rest) const
{
    const int hundreds = group / 100;
    const int below = group % 100;
    QString text;
    if (hundreds >= 1)
        text = below == 0 && hundreds == 2 ? wordAt(dualShort, 0) : wordAt(hundredsWords, hundreds);
    if (below == 0)
        return text;
    if (below >= 20) {
        if (below % 10 != 0)
            join(text, wordAt(ones, below % 10));
        join(text, wordAt(tensWords, below / 10 - 2));
        return text;
    }
    if (below == 2 && hundreds == 0 && groupIndex > unitsIndex) {
        const auto *const end = std::end(exactTwos);
        const bool exact = std::find(std::begin(exactTwos), end, m_integerValue) != end;
        return exact ? wordAt(dualShort, groupIndex) : wordAt(dualFull, groupIndex);
    }
    // A lone 1 or 2 is left to the thing counted; that goes for the decimals too, so 3.1 ends with a bare "و".
    const bool implied = below <= 2 && groupIndex <= unitsIndex && rest == 0 && hundreds == 0;
    if (below == 1 && groupIndex > unitsIndex)
        join(text, wordAt(singular, groupIndex));
    else
        join(text, implied ? QString() : wordAt(ones, below));
    return text;
}
