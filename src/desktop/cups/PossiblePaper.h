#pragma once

#include <cmath>
#include <vector>

#include "desktop/cups/PrintQueue.h"
#include "desktop/cups/SheetSize.h"

namespace desktop::cups {

inline bool IsPossibleSide(double length) {
    return length > 0 && length <= LongestSide;
}

/// True if the margins at two opposite sides leave something of the length between them. A sheet that is
/// printed over its edge has margins below 0.
inline bool LeaveRoom(double oneMargin, double otherMargin, double length) {
    return std::abs(oneMargin) < length && std::abs(otherMargin) < length && oneMargin + otherMargin < length;
}

/// Sizes and margins come from a maker's file or from the network and may be any number, or none. Papers that
/// cannot be are taken away, and margins that leave nothing count as none.
inline void KeepPossible(std::vector<Paper>& papers) {
    std::erase_if(papers, [](const Paper& paper) {
        return !IsPossibleSide(paper.Width) || !IsPossibleSide(paper.Height);
    });
    for (Paper& paper : papers) {
        if (!LeaveRoom(paper.Left, paper.Right, paper.Width)) {
            paper.Left = paper.Right = 0;
        }
        if (!LeaveRoom(paper.Top, paper.Bottom, paper.Height)) {
            paper.Top = paper.Bottom = 0;
        }
    }
}

} // namespace desktop::cups
