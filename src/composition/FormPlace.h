#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/RuntimeError.h"
#include "state/AppState.h"

namespace machine {
class Locale;
}

namespace composition {

/// Tops of the forms on their stationery, in centimetres from the top of the sheet. The three of a sheet do
/// not stand at one pitch.
inline constexpr std::array<double, 3> SheetTopsCm = {0, 10.158, 20.317};
inline constexpr double UnderLetterTopCm = 19.8;

/// Place of the form under a letter, behind the three places of a sheet.
inline constexpr std::int16_t PlaceUnderLetter = 4;

/// `positie`, 1 to 3 on a sheet, or PlaceUnderLetter where the stationery is that.
std::int16_t PlaceOf(const state::AppState& state, std::int16_t positie);

/// The setting of a calibration for a place; RuntimeError with ErrorSubscriptOutOfRange if it has none.
template <std::size_t Places>
const std::string& SettingAt(const std::array<std::string, Places>& calibration, std::int16_t positie) {
    if (positie < 1 || static_cast<std::size_t>(positie) > Places) {
        throw base::SubscriptOutOfRange();
    }
    return calibration[static_cast<std::size_t>(positie) - 1];
}

/// A point on the page, in twips.
struct Twips {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

/// Where everything on the form but the OCR line is measured from: the form's corner, moved by the
/// calibration of the whole form.
Twips CalibratedForm(const state::AppState& state, machine::Locale& locale, Twips corner,
                     std::int16_t positie);

/// By how much a block of the form is moved, in twips.
struct RowShift {
    double x = 0;
    double y = 0;
};

RowShift CalibratedShift(const state::AppState& state, machine::Locale& locale,
                         const state::Calibration& links, const state::Calibration& top,
                         std::int16_t positie);

} // namespace composition
