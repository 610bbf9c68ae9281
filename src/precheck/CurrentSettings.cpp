#include "precheck/CurrentSettings.h"

#include "composition/PrintIncassant.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"

namespace precheck {

bool CurrentSettings::Readable() const {
    return Store.Trouble == machine::StoreTrouble::None || Store.Trouble == machine::StoreTrouble::CutOff;
}

CurrentSettings ReadCurrentSettings(const state::AppState& state, machine::Registry& registry) {
    CurrentSettings current = {registry.Condition(state.SettingsKey), state};
    current.State.Surface = nullptr;
    if (current.Readable()) {
        state::LaadInstellingen(current.State, registry, false);
    }
    return current;
}

bool PrintsCreditor(const state::AppState& state) {
    return IsKnownType(state) && state.IncassantAfdrukken &&
           composition::ContractPrintsIncassant(state.GMUContractVorm);
}

bool IsKnownType(const state::AppState& state) {
    return !state::AcceptgiroTypeText(state.AcceptgiroType).empty();
}

} // namespace precheck
