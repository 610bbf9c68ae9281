#pragma once

#include <string>

namespace printmanager {

/// A printer and what was selected for it: positions of the combos as decimal text, counted from 0.
struct PrinterState {
    std::string Printer;
    std::string Paper;
    std::string Bin;
    std::string Orientation;
};

} // namespace printmanager
