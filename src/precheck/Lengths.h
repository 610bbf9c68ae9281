#pragma once

#include "base/Units.h"

namespace precheck {

constexpr double ToMillimetres(double twips) {
    return twips * base::MillimetresPerInch / base::TwipsPerInch;
}

constexpr double ToTwips(double millimetres) {
    return millimetres * base::TwipsPerInch / base::MillimetresPerInch;
}

} // namespace precheck
