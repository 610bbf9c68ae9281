#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "machine/SeededRandom.h"

namespace generate {

/// The chance in the tables. It starts from a fixed number, so every run on every machine writes the same
/// rows.
class Chance {
  public:
    explicit Chance(std::uint64_t start) : random_(start) {}

    machine::RandomSource& Source() { return random_; }

    /// A whole number from `low` to `high`, both included.
    int Between(int low, int high);

    template <class T, std::size_t Size>
    const T& OneOf(const T (&items)[Size]) {
        return items[Index(Size)];
    }

    template <class T>
    void Shuffle(std::vector<T>& items) {
        for (std::size_t i = items.size(); i > 1; --i) {
            std::swap(items[i - 1], items[Index(i)]);
        }
    }

  private:
    std::size_t Index(std::size_t size);

    machine::SeededRandom random_;
};

} // namespace generate
