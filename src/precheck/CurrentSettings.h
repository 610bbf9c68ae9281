#pragma once

#include "machine/Registry.h"
#include "state/AppState.h"

namespace machine {
class Registry;
}

namespace precheck {

/// The settings as a run that began now would have them: a copy of the program's, with what each document
/// reads anew.
struct CurrentSettings {
    machine::StoreCondition Store;
    state::AppState State;

    /// The store gives values, at least some of them.
    bool Readable() const;
};

/// A store that gives nothing is not read: to read it would be told to the user.
CurrentSettings ReadCurrentSettings(const state::AppState& state, machine::Registry& registry);

/// Whether forms bear the creditor, all of it or the account alone.
bool PrintsCreditor(const state::AppState& state);

/// Whether the contract form is one of those that there are.
bool IsKnownContract(const state::AppState& state);

/// Whether the form type is one of those that there are.
bool IsKnownType(const state::AppState& state);

} // namespace precheck
