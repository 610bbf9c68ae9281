#pragma once

#include <cstdint>
#include <string_view>

#include "composition/FormPlace.h"
#include "payment/OcrLine.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace composition {

/// Whether forms carry the line and the payment reference under these settings.
bool HasOcrRegel(const state::AppState& state);

/// Draws the line that the banks' readers take in, and the payment reference for the human eye on accept part
/// and stub; under ContractSBlank also the number of the service bureau. Nothing under ContractNone or
/// ContractA, without payment traffic or without an OCR font. `values.ContractVorm` is set here. `positie` is
/// the place on the sheet, 1 to 3; under a letter it becomes 4. `line` is room that a run keeps from form to
/// form. The first failure ends the drawing.
void PrintOCRRegel(state::AppState& state, machine::Platform& platform, Twips corner,
                   payment::OcrValues values, std::int16_t& positie, payment::OcrLine& line);

} // namespace composition
