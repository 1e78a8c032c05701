#pragma once

#include <QtGlobal>

#include <limits>

/// The value as an `int`, or the end of the range that it lies beyond. Sums and products of a template's numbers are
/// made in 64 bits and cut here: a number may be anything that converts.
constexpr int boundedInt(qint64 value)
{
    return static_cast<int>(qBound<qint64>(std::numeric_limits<int>::min(), value, std::numeric_limits<int>::max()));
}
