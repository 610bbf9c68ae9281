#include "composition/FormPlace.h"

#include "state/ContractTexts.h"
#include "composition/SurfaceRules.h"

namespace composition {

std::int16_t PlaceOf(const wizard::AppState& state, std::int16_t positie) {
    return state.AcceptgiroType == TypeUnderLetter ? PlaceUnderLetter : positie;
}

Twips CalibratedForm(const wizard::AppState& state, platform::Locale& locale, Twips corner,
                     std::int16_t positie) {
    return {Kalibreer(state, locale, corner.x, SettingAt(state.AcceptGiroLinks, positie)),
            Kalibreer(state, locale, corner.y, SettingAt(state.AcceptGiroTop, positie))};
}

RowShift CalibratedShift(const wizard::AppState& state, platform::Locale& locale,
                         const wizard::Calibration& links, const wizard::Calibration& top,
                         std::int16_t positie) {
    return {static_cast<double>(Kalibreer(state, locale, 0, SettingAt(links, positie))),
            static_cast<double>(Kalibreer(state, locale, 0, SettingAt(top, positie)))};
}

} // namespace composition
