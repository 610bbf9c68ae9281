#pragma once

#include <cstdint>
#include <vector>

#include "machine/PrinterCondition.h"
#include "precheck/Finding.h"

namespace state {
struct AppState;
}

namespace precheck {

/// The sheet that the forms of the type in force come on, printable to its edges: 12 inch high for three
/// forms, A4 for a form under a letter.
machine::SheetArea StationeryOf(const state::AppState& state);

/// The forms on it, by their places.
std::vector<SheetPlace> FormsOf(const state::AppState& state);

} // namespace precheck
