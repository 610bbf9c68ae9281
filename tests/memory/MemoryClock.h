#pragma once

#include <optional>

#include "machine/Clock.h"

namespace memory {

/// A clock that stands where it is set, and the machine's own until then.
class MemoryClock final : public machine::Clock {
  public:
    machine::DateTime Now() const override;

    void Set(const machine::DateTime& moment) { moment_ = moment; }

  private:
    std::optional<machine::DateTime> moment_;
};

} // namespace memory
