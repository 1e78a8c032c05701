#include "report/numberwords/scales.h"

namespace NumberWords {

QString wordUpToTwenty(const SmallNumbers &words, double value)
{
    const int number = static_cast<int>(value);
    return number == value ? QString::fromUtf8(words.upToTwenty[number]) : QString();
}

QString wordOfTens(const SmallNumbers &words, int tens)
{
    return QString::fromUtf8(tens == 2 ? words.upToTwenty[20] : words.tens[tens - 3]);
}

double restOf(double value, const Scale &scale, double end)
{
    return value < end ? std::fmod(std::floor(value), scale.size) : 0;
}

} // namespace NumberWords
