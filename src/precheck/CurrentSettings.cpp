#include "precheck/CurrentSettings.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "composition/PrintIncassant.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"

namespace precheck {

namespace {

constexpr std::array<std::int16_t, 6> ContractForms = {state::ContractA,           state::ContractB,
                                                       state::ContractCBlank,      state::ContractSBlank,
                                                       state::ContractCPreprinted, state::ContractCAccount};

} // namespace

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

bool IsKnownContract(const state::AppState& state) {
    return std::find(ContractForms.begin(), ContractForms.end(), state.GMUContractVorm) !=
           ContractForms.end();
}

bool IsKnownType(const state::AppState& state) {
    return !state::AcceptgiroTypeText(state.AcceptgiroType).empty();
}

} // namespace precheck
