#include "Chance.h"

namespace generate {

int Chance::Between(int low, int high) {
    return low + static_cast<int>(Index(static_cast<std::size_t>(high - low) + 1));
}

std::size_t Chance::Index(std::size_t size) {
    return static_cast<std::size_t>(random_.Rnd() * static_cast<double>(size));
}

} // namespace generate
