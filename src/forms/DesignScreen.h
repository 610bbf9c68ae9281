#pragma once

#include "base/Units.h"

// The screen that the windows are laid out for. A desktop scales them to its own.
namespace forms {

inline constexpr int DesignDotsPerInch = 96;
inline constexpr double TwipsPerDesignDot = base::TwipsPerInch / DesignDotsPerInch;

// The font of its windows, in its dots: the width of a letter on average, and the height of a line.
inline constexpr double DesignCharacterWidth = 6;
inline constexpr double DesignLineHeight = 15;

} // namespace forms
