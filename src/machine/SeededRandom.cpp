#include "machine/SeededRandom.h"

#include <bit>

namespace machine {

void SeededRandom::Randomize(double seed) {
    state_ = Next() ^ std::bit_cast<std::uint64_t>(seed);
}

double SeededRandom::Rnd() {
    constexpr int bitsOfDouble = 53;
    return static_cast<double>(Next() >> (64 - bitsOfDouble)) /
           static_cast<double>(std::uint64_t{1} << bitsOfDouble);
}

// SplitMix64 (Steele, Lea, Flood 2014): one addition and a finalizer that spreads every bit over all others.
std::uint64_t SeededRandom::Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}

} // namespace machine
