#include "precheck/Stationery.h"

#include "composition/FormPlace.h"
#include "precheck/Lengths.h"
#include "state/AppState.h"
#include "state/ContractTexts.h"

namespace precheck {

namespace {

constexpr double WidthMillimetres = 210;
constexpr double ThreeFormsMillimetres = 304.8; // 12 inch
constexpr double LetterMillimetres = 297;       // A4

} // namespace

machine::SheetArea StationeryOf(const state::AppState& state) {
    const double width = ToTwips(WidthMillimetres);
    const double height =
        ToTwips(state.AcceptgiroType == state::TypeUnderLetter ? LetterMillimetres : ThreeFormsMillimetres);
    return {.Width = width, .Height = height, .Left = 0, .Top = 0, .Right = width, .Bottom = height};
}

std::vector<SheetPlace> FormsOf(const state::AppState& state) {
    const machine::SheetArea sheet = StationeryOf(state);
    const auto at = [&](double topCm) { return topCm * state.TwipsPerCm; };
    if (state.AcceptgiroType == state::TypeUnderLetter) {
        return {{0, at(composition::UnderLetterTopCm), sheet.Width, sheet.Height}};
    }
    const auto& tops = composition::SheetTopsCm;
    return {{0, at(tops[0]), sheet.Width, at(tops[1])},
            {0, at(tops[1]), sheet.Width, at(tops[2])},
            {0, at(tops[2]), sheet.Width, sheet.Height}};
}

} // namespace precheck
