#pragma once

#include <cstdint>

namespace base {

/// A flag of a form or of a record: 16 bits, -1 for true and 0 for false, as the main application keeps its
/// flags. Reads and is assigned as a `bool`.
class Boolean {
  public:
    constexpr Boolean(bool value = false) : value_(value ? std::int16_t{-1} : std::int16_t{0}) {}

    constexpr operator bool() const { return value_ != 0; }
    /// -1 or 0.
    constexpr std::int16_t Value() const { return value_; }

  private:
    std::int16_t value_;
};
static_assert(sizeof(Boolean) == 2);

} // namespace base
