#include "desktop/qt/BoldOutline.h"

#include <algorithm>
#include <array>
#include <vector>

namespace desktop::qt {

namespace {

/// One closed line of an outline.
struct Contour {
    FT_Outline Line = {};
    std::array<short, 1> End = {};
    FT_BBox Box = {};
    bool IsHole = false;
};

std::vector<Contour> ContoursOf(const FT_Outline& outline) {
    std::vector<Contour> contours(static_cast<std::size_t>(outline.n_contours));
    int first = 0;
    for (int i = 0; i < outline.n_contours; ++i) {
        const int end = outline.contours[i];
        Contour& contour = contours[static_cast<std::size_t>(i)];
        contour.End = {static_cast<short>(end - first)};
        contour.Line.n_contours = 1;
        contour.Line.n_points = static_cast<short>(end - first + 1);
        contour.Line.points = outline.points + first;
        contour.Line.tags = outline.tags + first;
        contour.Line.contours = contour.End.data();
        FT_Outline_Get_CBox(&contour.Line, &contour.Box);
        contour.IsHole = FT_Outline_Get_Orientation(&contour.Line) == FT_ORIENTATION_FILL_LEFT;
        first = end + 1;
    }
    return contours;
}

/// The distance to the nearest of the others that stand beside it; `farthest` if there is none so near.
FT_Pos GapBeside(const Contour& contour, const std::vector<Contour>& all, FT_Pos farthest) {
    FT_Pos gap = farthest;
    for (const Contour& other : all) {
        if (!other.IsHole && other.Box.yMin < contour.Box.yMax && other.Box.yMax > contour.Box.yMin) {
            const FT_Pos between =
                std::max(other.Box.xMin - contour.Box.xMax, contour.Box.xMin - other.Box.xMax);
            gap = between > 0 ? std::min(gap, between) : gap;
        }
    }
    return gap;
}

void Thicken(Contour& contour, const std::vector<Contour>& all, FT_Pos across, FT_Pos up) {
    FT_Pos x = std::min(across, GapBeside(contour, all, 2 * across) / 2);
    FT_Pos y = up;
    if (contour.IsHole) { // a line of the other direction grows inwards
        x = -std::min(across, (contour.Box.xMax - contour.Box.xMin) / 2);
        y = -std::min(up, (contour.Box.yMax - contour.Box.yMin) / 2);
    }
    FT_Outline_EmboldenXY(&contour.Line, x, y);
    FT_Outline_Translate(&contour.Line, (across - x) / 2,
                         (up - y) / 2); // all keep their middles beside each other
}

} // namespace

void Embolden(FT_Outline& outline, FT_Pos across, FT_Pos up) {
    std::vector<Contour> contours = ContoursOf(outline);
    for (Contour& contour : contours) {
        Thicken(contour, contours, across, up);
    }
}

} // namespace desktop::qt
