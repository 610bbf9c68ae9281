#pragma once

#include "machine/RandomSource.h"
#include "machine/SeededRandom.h"

namespace precheck {

/// Draws the same values each time, whatever the clock says: what is found of a document is not to change
/// from one look to the next.
class SteadyChance final : public machine::RandomSource {
  public:
    void Randomize(double) override {}
    double Rnd() override { return values_.Rnd(); }

  private:
    machine::SeededRandom values_;
};

} // namespace precheck
