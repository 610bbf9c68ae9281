#pragma once

// Measures of length and how many twips, the program's own unit, they have.
namespace base {

inline constexpr double TwipsPerInch = 1440;
inline constexpr double TwipsPerPoint = 20;
inline constexpr double PointsPerInch = TwipsPerInch / TwipsPerPoint;
inline constexpr double MillimetresPerInch = 25.4;

} // namespace base
