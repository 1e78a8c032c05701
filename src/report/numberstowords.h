#pragma once

#include <QObject>
#include <QString>

/// The number `value` spelled out in `language`, as the script function NumberToWords of a report gives it. The word
/// lists and the joins are those that printed reports have always shown, odd spellings and stray blanks included.
///
/// `language` is one of the keys below, letter case included; every other text means English:
/// | key | language | decimals | whole numbers up to |
/// |---|---|---|---|
/// | UKR | Ukrainian, hryvnias and kopecks | two, as digits | 2^53; no scale words from 10^12 up |
/// | GER | German | ignored from 21 up | 2^63; see below |
/// | ENG | English | ignored from 21 up | 2^31; see below |
/// | ESP | Spanish; 0 gives an empty text | ignored | 10^15 |
/// | FR_FR, FR_BE, FR_CH | French of France, Belgium and Switzerland | ignored | 2^31 |
/// | ITA | Italian | ignored from 21 up | 2^63; see below |
/// | AR | Arabic, see NumberToArabicWord | up to six digits in all | 10^24; no scale words above |
///
/// English, German and Italian give an empty text for a value below 21 with decimals, and only the upper part of one at
/// or above the bound: 3000000005 in English is "three billion". Ukrainian, Spanish and French give an empty text from
/// the bound up. Negative values, infinity and not-a-number give an empty text in every language; nothing is logged.
QString numberToWords(double value, const QString &language);

/// One number in Arabic words. Counted things are taken as masculine throughout. What the decimals and the exact two
/// thousand read like follows from the value written with six significant digits: 12.5 has the decimals 5, and so has
/// 12.05; from a million up the writing has an exponent, and there are none.
class NumberToArabicWord : public QObject {
    Q_OBJECT

public:
    /// For one value; `parent` owns the object if it is given.
    explicit NumberToArabicWord(double value, QObject *parent = nullptr);

    /// The words, with a blank after the whole part unless the value is 0, 1 or 2. Groups of thousands beyond the
    /// sextillions have no scale word. Empty for a negative value, infinity and not-a-number.
    QString spell() const;

private:
    QString spellGroup(int group, int groupIndex, double rest) const;
    QString spellWholePart() const;

    const double m_value;
    quint64 m_integerValue = 0; // what stands before the point; 0 when that is no number
    int m_fractionValue = 0; // what stands behind the point, likewise
};
