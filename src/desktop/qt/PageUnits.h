#pragma once

#include <cmath>

#include "base/Units.h"

// What pages are drawn in: fine enough that a point and a twip are a whole number of it.
namespace desktop::qt {

inline constexpr int UnitsPerInch = 7200;
inline constexpr double UnitsPerPoint = UnitsPerInch / base::PointsPerInch;
inline constexpr double UnitsPerTwip = UnitsPerInch / base::TwipsPerInch;

/// What a page tells as its resolution, whatever the printer has: margins are whole dots of it.
inline constexpr int DotsPerInch = 600;
inline constexpr double TwipsPerDot = base::TwipsPerInch / DotsPerInch;

inline int Dots(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerDot));
}

} // namespace desktop::qt
