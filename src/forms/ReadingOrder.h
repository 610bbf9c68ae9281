#pragma once

#include <cstddef>
#include <vector>

namespace forms {

/// A rectangle of a window, in any unit.
struct Area {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

/// The positions of the areas in the order in which a page is read: line by line from the top, and each line
/// from the left. An area whose middle is level with the highest one that has not been read yet stands in the
/// same line.
std::vector<std::size_t> ReadingOrder(const std::vector<Area>& areas);

} // namespace forms
