#pragma once

#include <optional>

#include "precheck/Precheck.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace precheck {

/// The printer that the next print manager will begin with, with the paper and the orientation that it has by
/// itself, as far as that can be told without asking a driver. Nothing without printers.
std::optional<ChosenPrinter> CurrentPrinter(const state::AppState& state, machine::Platform& platform);

} // namespace precheck
