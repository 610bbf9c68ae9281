#pragma once

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace composition {

class PrinterSurface;

/// Points of the lists, in which a document begins and ends on any surface.
inline constexpr double ListFontPoints = 8;

/// Makes the printer the surface, in its own font at size 8, and sets the surface's rectangle. Without a
/// printer the surface stays as it was. Each step that fails is told to the user with its number, and the
/// step behind it follows.
void OpenPrinter(state::AppState& state, machine::Platform& platform, PrinterSurface& printer);

} // namespace composition
