#pragma once

namespace platform {
class Locale;
}
namespace wizard {
struct AppState;
}

namespace composition {

/// Draws the settings under which a batch is printed: all calibration values as they stand in the store,
/// contract form, form type and a sample of the OCR font. One page; what does not fit is lost at its foot.
void PrintCalibrationReport(const wizard::AppState& state, platform::Locale& locale);

} // namespace composition
