#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "machine/Clock.h"
#include "machine/RandomSource.h"

namespace support {

/// A clock that stands still.
class HeldClock final : public machine::Clock {
  public:
    machine::DateTime Now() const override { return {2026, 3, 14, 12, 30, 15, 250}; }
};

/// Gives the listed values in turn, over and over, and keeps count of the seeds.
class ListedRandom final : public machine::RandomSource {
  public:
    explicit ListedRandom(std::vector<double> values) : values_(std::move(values)) {}

    void Randomize(double seed) override {
        ++seeds;
        lastSeed = seed;
    }
    double Rnd() override { return values_[draws++ % values_.size()]; }

    std::size_t draws = 0;
    int seeds = 0;
    double lastSeed = 0;

  private:
    std::vector<double> values_;
};

} // namespace support
