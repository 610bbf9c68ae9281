#pragma once

#include <cstdint>
#include <string_view>

namespace composition {

class PrintSurface;

/// The beginning of a text that fits between `x1` and `x2` (twips) in the surface's present font, or its
/// first two characters if nothing fits. Nothing marks the cut. The result is a part of `tekst`.
std::string_view KortTekst(PrintSurface& surface, std::string_view tekst, std::int32_t x1, std::int32_t x2);

} // namespace composition
