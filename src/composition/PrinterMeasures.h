#pragma once

#include <cstdint>

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace composition {

// Left margin of the lists on an upright sheet and on one that lies, twips.
inline constexpr std::int32_t LeftMarginPortrait = 450;
inline constexpr std::int32_t LeftMarginLandscape = 175;

/// Gives the printer the orientation that is asked for and reads its measures into `state`: PageWidth,
/// PageHeight and LineHeight in twips, PhysicalOffsetX and PhysicalOffsetY in 1400ths of an inch. Does
/// nothing without a printer. A measure that cannot be read keeps its value.
void LeesPrinterMaten(state::AppState& state, machine::Platform& platform);

/// Height of a text line in twips, measured on the printer in the font that it has now, whatever the surface
/// is.
std::int32_t PrinterLineHeight(machine::Platform& platform);

} // namespace composition
