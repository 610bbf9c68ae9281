#pragma once

#include "base/Units.h"

// What pages are drawn in: fine enough that a point and a twip are a whole number of it.
namespace desktop::qt {

inline constexpr int UnitsPerInch = 7200;
inline constexpr double UnitsPerPoint = UnitsPerInch / base::PointsPerInch;
inline constexpr double UnitsPerTwip = UnitsPerInch / base::TwipsPerInch;

} // namespace desktop::qt
