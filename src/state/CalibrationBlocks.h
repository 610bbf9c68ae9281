#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "state/AppState.h"

namespace state {

/// What the main application calibrates each by itself, in the order of the report.
enum class CalibratedBlock {
    OcrLine,
    Form, ///< all but the OCR line; the blocks below are moved beyond it
    Payer,
    ReferenceOnStub,
    ReferenceOnAccept,
    CreditorOnStub,
    CreditorOnAccept,
};
inline constexpr std::size_t CalibratedBlockCount = 7;

/// Places where a form can stand: three on a sheet and one under a letter.
inline constexpr std::size_t CalibratedPlaces = 4;

/// The calibration of one block: its values in the record, by place, and the names by which the store and the
/// report know it.
template <class Text>
struct CalibrationValues {
    CalibratedBlock Block;
    std::string_view Stem; ///< of its keys: the stem, "Links" or "Top", and the place
    std::string_view Title;
    std::span<Text, CalibratedPlaces> X;
    std::span<Text, CalibratedPlaces> Y;
};

/// All blocks, each at the place of its number. `State` is AppState or const AppState.
template <class State>
auto CalibrationBlocks(State& state) {
    using Text = std::conditional_t<std::is_const_v<State>, const std::string, std::string>;
    using Block = CalibratedBlock;
    const auto places = [](auto& calibration) {
        return std::span(calibration).template first<CalibratedPlaces>();
    };
    return std::array<CalibrationValues<Text>, CalibratedBlockCount>{{
        {Block::OcrLine, "OCR", "OCR regel", places(state.OCRLinks), places(state.OCRTop)},
        {Block::Form, "AcceptGiro", "Integrale acceptgiro (behalve OCR-regel)", places(state.AcceptGiroLinks),
         places(state.AcceptGiroTop)},
        {Block::Payer, "AcceptGiroNAW", "Naam/adres/woonplaatsgegevens", places(state.AcceptGiroNAWLinks),
         places(state.AcceptGiroNAWTop)},
        {Block::ReferenceOnStub, "AcceptGiroBKSouche", "Betalingskenmerk (linkersouche)",
         places(state.AcceptGiroBKSoucheLinks), places(state.AcceptGiroBKSoucheTop)},
        {Block::ReferenceOnAccept, "AcceptGiroBKAccept", "Betalingskenmerk op acceptgiro",
         places(state.AcceptGiroBKAcceptLinks), places(state.AcceptGiroBKAcceptTop)},
        {Block::CreditorOnStub, "AcceptGiroBGSouche", "Incassant/begunstigde op linker souche",
         places(state.AcceptGiroBGSoucheLinks), places(state.AcceptGiroBGSoucheTop)},
        {Block::CreditorOnAccept, "AcceptGiroBGAccept", "Incassant/begunstigde op acceptgiro",
         places(state.AcceptGiroBGAcceptLinks), places(state.AcceptGiroBGAcceptTop)},
    }};
}

// The two directions as the keys name them.
inline constexpr std::string_view DirectionX = "Links";
inline constexpr std::string_view DirectionY = "Top";

/// The key of one value: "AcceptGiroNAWTop2". `place` counts from 0.
std::string CalibrationKey(std::string_view stem, std::string_view direction, std::size_t place);

} // namespace state
