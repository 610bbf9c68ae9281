#pragma once

#include <cstdint>

#include "desktop/cups/PrintQueue.h"

namespace desktop::cups {

/// A sheet with the strips that the printer cannot reach, turned as it is drawn on; twips.
struct TurnedSheet {
    double Width, Height, Left, Top, Right, Bottom;
};

inline TurnedSheet Turned(const Paper& paper, std::int16_t orientation) {
    if (orientation != Landscape) {
        return {paper.Width, paper.Height, paper.Left, paper.Top, paper.Right, paper.Bottom};
    }
    // A sheet on its side has its foot at the left.
    return {paper.Height, paper.Width, paper.Bottom, paper.Left, paper.Top, paper.Right};
}

} // namespace desktop::cups
