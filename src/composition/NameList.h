#pragma once

namespace state {
struct AppState;
}

namespace composition {

/// Draws the list of the test persons that a batch can show, 249 of them whatever its size, with a header on
/// each page.
void PrintNameList(const state::AppState& state);

} // namespace composition
