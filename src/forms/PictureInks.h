#pragma once

#include <array>

#include "forms/Colour.h"

namespace forms {

/// The colours of the program's pictures that are signs and nothing else: lines upon whatever background the
/// user's theme has, of which they must stand out. All other colours of the pictures carry their own
/// background.
namespace ink {
inline constexpr Colour Sign = colour::Rgb(0x51, 0x70, 0x8F);
inline constexpr Colour SignLit = colour::Rgb(0x1F, 0x7A, 0xD1);
inline constexpr Colour SignOff = colour::Rgb(0xB9, 0xC0, 0xC7);
/// The field below a sign that is lit.
inline constexpr Colour Field = colour::Rgb(0xDB, 0xE9, 0xF7);
inline constexpr std::array All{Sign, SignLit, SignOff, Field};
} // namespace ink

/// A colour of a picture as it is shown on this background, a plain colour.
Colour InkOn(Colour drawn, Colour background);

/// The same on a button that cannot be pressed: a sign is that of all buttons that are off, and any other
/// colour keeps near to the background.
Colour InkOff(Colour drawn, Colour background);

} // namespace forms
