#pragma once

#include <cmath>

/// The one conversion of template units to whole device units: units times scale, the fraction dropped. A template may
/// hold any numbers: what has no sensible place on paper ends at a hundred million device units, far beyond every sheet
/// and well within what painters add to it; what is no number is 0.
inline int deviceUnits(double units, float scale)
{
    constexpr float farAway = 1e8F;
    const float value = float(units) * scale;
    if (std::isnan(value))
        return 0;
    return static_cast<int>(value < -farAway ? -farAway : value > farAway ? farAway : value);
}
