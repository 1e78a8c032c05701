#pragma once

#include <QString>

/// One routine a language, behind numberToWords(). Every `value` is finite and not negative; bounds and decimals are
/// told there. Arabic is the class NumberToArabicWord.
namespace NumberWords {

QString spellEnglish(double value);

/// `inner` is true for the parts of a compound word: 1 is "eins" alone and "ein" inside.
QString spellGerman(double value, bool inner);

QString spellItalian(double value);

/// Which words for 70, 80 and 90.
enum FrenchVariant { France = 0, Belgium = 1, Switzerland = 2 };

/// A negative `n` gives an empty text.
QString spellFrench(int n, FrenchVariant variant);

/// With `withCents` the first two decimals, cut and not rounded, follow after "con" unless both are 0.
QString spellSpanish(double value, bool withCents);

/// With `stem` the names of the currency and of its hundredth are left out, and only the number remains.
QString spellUkrainian(double value, bool stem);

} // namespace NumberWords
