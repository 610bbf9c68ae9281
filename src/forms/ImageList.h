#pragma once

#include <string>

namespace forms {

/// A list of pictures of one size among the program's own, counted from 1. Picture n is named after the list
/// and its number, "imgResourceSmall-1".
struct ImageList {
    const char* Name;
    double ImageSize; ///< twips, both ways

    std::string Picture(int index) const { return std::string(Name) + "-" + std::to_string(index); }
};

/// The wizard's two lists: 16 and 24 dots at 96 to the inch. Of the small list, 1 to 4 are the looks of the
/// arrow to the previous page (disabled, normal, hot, down) and 5 to 8 those of the arrow to the next.
inline constexpr ImageList imgResourceSmall = {"imgResourceSmall", 240};
inline constexpr ImageList imgResourceLarge = {"imgResourceLarge", 360};

} // namespace forms
