#pragma once

#include <string_view>

#include "state/CalibrationBlocks.h"

namespace composition {

/// What a text of a document is, for who has to name it to the user, and which calibration moves it.
struct FormField {
    /// With its article, as in the middle of a sentence: "het bedrag in centen".
    std::string_view Name;
    state::CalibratedBlock Block = state::CalibratedBlock::Form;
};

} // namespace composition
