#pragma once

#include <cstdint>

#include "machine/RandomSource.h"

namespace machine {

/// The generator of every desktop. A seed is stirred into the state and does not replace it: a form is drawn
/// faster than the clock ticks, and its account, its euros and its cents must not hang together because they
/// were drawn within one tick. With the same start and the same seeds it gives the same values everywhere.
class SeededRandom final : public RandomSource {
  public:
    explicit SeededRandom(std::uint64_t start = 0) : state_(start) {}

    void Randomize(double seed) override;
    double Rnd() override;

  private:
    std::uint64_t Next();

    std::uint64_t state_;
};

} // namespace machine
