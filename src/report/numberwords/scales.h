#pragma once

#include <QString>

#include <cmath>
#include <cstddef>
#include <limits>

/// What the languages share: words for small numbers, and scale words such as "thousand". A number from the first scale
/// up is read as quotient, scale word and rest.
namespace NumberWords {

/// One past the largest signed number of 32 and of 64 bits.
constexpr double end32 = 2147483648.0;
constexpr double end64 = 9223372036854775808.0;

struct SmallNumbers {
    const char *upToTwenty[21]; ///< 0 to 20
    const char *tens[7]; ///< 30, 40, up to 90
};

struct Scale {
    double size; ///< a power of ten
    const char *word;
};

/// Whether there is any text for the value: not for a negative one, infinity and not-a-number.
inline bool isSpellable(double value)
{
    return value >= 0 && value <= std::numeric_limits<double>::max();
}

/// The word of a value below 21; empty unless it is whole, since the table has no other entries.
QString wordUpToTwenty(const SmallNumbers &words, double value);

/// The word of 10 x `tens`, for `tens` from 2 to 9.
QString wordOfTens(const SmallNumbers &words, int tens);

/// The largest of the ascending `scales` that `value` reaches; null when it reaches none.
template<std::size_t count> const Scale *scaleOf(const Scale (&scales)[count], double value)
{
    const Scale *reached = nullptr;
    for (const Scale &scale : scales) {
        if (value < scale.size)
            break;
        reached = &scale;
    }
    return reached;
}

/// How many whole times `value` holds the scale, at least 1 for the scale that scaleOf() gives.
inline double quotientOf(double value, const Scale &scale)
{
    return std::floor(value / scale.size);
}

/// What lies below the quotient, without decimals. From `end` up, which is end32 or end64, there is none: the rest is
/// that of integers of this width, so printed reports leave it out there.
double restOf(double value, const Scale &scale, double end);

} // namespace NumberWords
