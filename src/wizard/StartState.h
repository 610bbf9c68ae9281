#pragma once

namespace state {
struct AppState;
}

namespace wizard {

/// Gives the record what never comes from a setting: texts, measures and tables.
void SetConstants(state::AppState& state);

// Characters that the boxes of the creditor take.
inline constexpr int LongestText = 60;
inline constexpr int LongestPostcode = 9;
inline constexpr int LongestAccount = 34;

/// Makes of the creditor that the settings have what the first page makes of it when nobody edits it: as far
/// as its boxes go, the postcode in capitals without blanks, the account without marks.
void TakeAsShown(state::AppState& state);

} // namespace wizard
