// Where the wizard's pages tell what would spoil the batch; twips.

#include "wizard/Voorcontrole.h"

namespace wizard {

namespace {

/// In the margin before the labels, in the middle of their line.
constexpr double MarkLeft = 60;
constexpr double MarkSide = 210;
constexpr double LabelRow = 240;

struct MarkPlace {
    int Number;
    double LabelTop;
};
constexpr MarkPlace Marks[] = {
    {Voorcontrole::FontField, 1575},
    {Voorcontrole::ContractField, 2145},
    {70, 2535},
    {71, 2940},
    {72, 3345},
    {73, 3750},
    {74, 4155},
};

constexpr double LineLeft = 300;
constexpr double LineTop = 5280;
constexpr double LineButtonHeight = 390;
constexpr double LinePictureSide = 330;
constexpr double LineButtonLeft = 735;
constexpr double LineButtonWidth = 5100;
/// That of cmdPrinten, which was made before: the button follows it.
constexpr int LineTabIndex = 41;

} // namespace

void Voorcontrole::LayOut() {
    for (const MarkPlace& place : Marks) {
        pictMelding(place.Number)
            .Move(MarkLeft, place.LabelTop + (LabelRow - MarkSide) / 2, MarkSide, MarkSide);
        pictMelding(place.Number).Withhold();
    }
    pictVoorcontrole.Move(LineLeft, LineTop + (LineButtonHeight - LinePictureSide) / 2, LinePictureSide,
                          LinePictureSide);
    pictVoorcontrole.Withhold();
    cmdVoorcontrole.Move(LineButtonLeft, LineTop, LineButtonWidth, LineButtonHeight);
    cmdVoorcontrole.SetTabIndex(LineTabIndex);
    cmdVoorcontrole.Withhold();
}

} // namespace wizard
