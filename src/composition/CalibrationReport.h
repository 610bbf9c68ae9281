#pragma once

namespace machine {
class Locale;
}
namespace state {
struct AppState;
}

namespace composition {

/// Draws the settings under which a batch is printed: all calibration values as they stand in the store,
/// contract form, form type and a sample of the OCR font. One page; what does not fit is lost at its foot.
void PrintCalibrationReport(const state::AppState& state, machine::Locale& locale);

} // namespace composition
