#pragma once

#include <cstdint>

namespace forms {

/// A colour as forms keep it: red in the lowest byte, then green, then blue; or, with the highest bit set,
/// the number of a colour of the system's theme, so that a form follows the user's desktop.
using Colour = std::uint32_t;

namespace colour {
inline constexpr Colour WindowBackground = 0x80000005;
inline constexpr Colour WindowText = 0x80000008;
/// Behind documents, such as the sheet of a preview.
inline constexpr Colour AppWorkspace = 0x8000000C;
inline constexpr Colour Highlight = 0x8000000D;
inline constexpr Colour ButtonFace = 0x8000000F;
inline constexpr Colour ButtonShadow = 0x80000010;
inline constexpr Colour GrayText = 0x80000011;
inline constexpr Colour ButtonText = 0x80000012;
inline constexpr Colour DarkShadow = 0x80000015;
/// No background of its own: what lies beneath shows.
inline constexpr Colour Transparent = 0xFFFFFFFF;

/// True for a number of the system's theme.
constexpr bool IsSystem(Colour colour) {
    return colour != Transparent && (colour & 0x80000000) != 0;
}

constexpr Colour Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | (green << 8U) | (blue << 16U);
}
} // namespace colour

} // namespace forms
