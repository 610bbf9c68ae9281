#include "forms/WheelTurn.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace forms {

std::int16_t WheelTurn::Add(int part) {
    if (part == 0) { // a wheel that tilts to the side tells this
        return 0;
    }
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    const bool sameWay = (part > 0) == (turned_ > 0);
    turned_ = std::clamp(std::clamp(part, -most, most) + (sameWay ? turned_ : 0), -most, most);
    return static_cast<std::int16_t>(std::abs(turned_) < Notch ? 0 : std::exchange(turned_, 0));
}

} // namespace forms
