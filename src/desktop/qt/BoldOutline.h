#pragma once

#include <ft2build.h>
#include FT_OUTLINE_H

#include <span>

namespace desktop::qt {

inline std::span<FT_Vector> Points(const FT_Outline& outline) {
    return {outline.points, static_cast<std::size_t>(outline.n_points)};
}

/// Makes the strokes of a TrueType outline thicker, upright ones by `across` and level ones by `up`. The
/// outline grows to the right and upwards, and keeps its lower left corner. What would close by it grows
/// less: the holes of letters, and dots beside each other.
void Embolden(FT_Outline& outline, FT_Pos across, FT_Pos up);

} // namespace desktop::qt
