#pragma once

namespace state {
struct AppState;
}

namespace wizard {

/// Gives the record what never comes from a setting: texts, measures and tables.
void SetConstants(state::AppState& state);

} // namespace wizard
