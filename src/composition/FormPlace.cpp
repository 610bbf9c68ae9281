#include "composition/FormPlace.h"

#include "composition/SurfaceRules.h"
#include "state/ContractTexts.h"

namespace composition {

std::int16_t PlaceOf(const state::AppState& state, std::int16_t positie) {
    return state.AcceptgiroType == state::TypeUnderLetter ? PlaceUnderLetter : positie;
}

Twips CalibratedForm(const state::AppState& state, machine::Locale& locale, Twips corner,
                     std::int16_t positie) {
    return {Kalibreer(state, locale, corner.x, SettingAt(state.AcceptGiroLinks, positie)),
            Kalibreer(state, locale, corner.y, SettingAt(state.AcceptGiroTop, positie))};
}

RowShift CalibratedShift(const state::AppState& state, machine::Locale& locale,
                         const state::Calibration& links, const state::Calibration& top,
                         std::int16_t positie) {
    return {static_cast<double>(Kalibreer(state, locale, 0, SettingAt(links, positie))),
            static_cast<double>(Kalibreer(state, locale, 0, SettingAt(top, positie)))};
}

} // namespace composition
