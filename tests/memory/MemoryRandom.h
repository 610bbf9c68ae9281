#pragma once

#include <cstdint>

#include "machine/RandomSource.h"
#include "machine/SeededRandom.h"

namespace memory {

/// The generator of a test. Once it has been given a seed it draws one series from it, and the seeds that the
/// program takes from the clock change nothing.
class MemoryRandom final : public machine::RandomSource {
  public:
    void Seed(std::uint64_t seed) {
        generator_ = machine::SeededRandom(seed);
        seeded_ = true;
    }

    void Randomize(double seed) override {
        if (!seeded_) {
            generator_.Randomize(seed);
        }
    }
    double Rnd() override { return generator_.Rnd(); }

  private:
    machine::SeededRandom generator_;
    bool seeded_ = false;
};

} // namespace memory
