#include "precheck/MovedText.h"

#include <cstddef>

#include "composition/SurfaceRules.h"
#include "precheck/Wording.h"

namespace precheck {

std::vector<MovingValue> MovingValues(const state::AppState& state, machine::Locale& locale,
                                      state::CalibratedBlock own, std::int16_t positie) {
    using Block = state::CalibratedBlock;
    const auto place = static_cast<std::size_t>(positie - 1);
    std::vector<MovingValue> values;
    for (const auto& block : state::CalibrationBlocks(state)) {
        if (block.Block != own && (block.Block != Block::Form || own == Block::OcrLine)) {
            continue;
        }
        const auto add = [&](std::string_view direction, const std::string& stored, bool right, bool down) {
            const double shift = composition::Kalibreer(state, locale, 0, stored);
            values.push_back({block.Block,
                              state::CalibrationKey(block.Stem, direction, place),
                              stored,
                              {right ? shift : 0, down ? shift : 0}});
        };
        const bool xCountsTwice = block.Block == Block::CreditorOnAccept;
        add(state::DirectionX, block.X[place], true, xCountsTwice);
        if (!xCountsTwice) {
            add(state::DirectionY, block.Y[place], false, true);
        }
    }
    return values;
}

composition::RowShift SumOf(const std::vector<MovingValue>& values) {
    composition::RowShift sum;
    for (const MovingValue& value : values) {
        sum.x += value.Shift.x;
        sum.y += value.Shift.y;
    }
    return sum;
}

std::string ListOf(const std::vector<MovingValue>& values) {
    std::string list;
    for (const MovingValue& value : values) {
        if (value.Shift.x != 0 || value.Shift.y != 0) {
            list.append(list.empty() ? "" : ", ").append(value.Key);
            list.append(" = ").append(Quoted(value.Stored));
        }
    }
    return list;
}

} // namespace precheck
