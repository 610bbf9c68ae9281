#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "composition/FormPlace.h"
#include "state/CalibrationBlocks.h"

namespace machine {
class Locale;
}
namespace state {
struct AppState;
}

namespace precheck {

/// One calibration that a text goes by, and how far it moves that text, in twips to the right and down.
struct MovingValue {
    state::CalibratedBlock Block;
    std::string Key;         ///< "OCRTop2"
    std::string_view Stored; ///< the value as it is stored
    composition::RowShift Shift;
};

/// The calibrations that a text of the block goes by on the form at a place: those of the block itself, and
/// those of the whole form.
std::vector<MovingValue> MovingValues(const state::AppState& state, machine::Locale& locale,
                                      state::CalibratedBlock block, std::int16_t positie);

/// How far they move it together.
composition::RowShift SumOf(const std::vector<MovingValue>& values);

/// `OCRTop2 = "15,00", OCRLinks2 = "0,30"`, of those that do move it.
std::string ListOf(const std::vector<MovingValue>& values);

} // namespace precheck
