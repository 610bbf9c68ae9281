#pragma once

namespace machine {

/// The random generator that the program is given, so that a test can hold it.
class RandomSource {
  public:
    virtual ~RandomSource() = default;

    /// Stirs `seed` (the seconds since midnight, as a rule) into the generator.
    virtual void Randomize(double seed) = 0;

    /// The next value, evenly spread: at least 0 and below 1.
    virtual double Rnd() = 0;
};

} // namespace machine
