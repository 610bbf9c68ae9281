#pragma once

#include <cstdint>

#include "composition/RunHost.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace composition {

// Numbers of the documents, in the order in which the wizard offers them.
inline constexpr std::int16_t DocumentTestForms = 1;
inline constexpr std::int16_t DocumentNameList = 2;
inline constexpr std::int16_t DocumentCalibration = 3;

/// Composes one document as one print job, on paper or in the preview, which the user then sees until he
/// leaves it. `num_copies` counts for the test forms alone. From the opening of the surface on, a step that
/// fails is given up without a message and the next one runs, so a job once begun goes to its end. A number
/// that is no document gives an empty one.
void Afdrukken(state::AppState& state, machine::Platform& platform, RunHost& host, std::int16_t iMethod,
               std::int16_t num_copies, bool blnPrintPreview);

} // namespace composition
