#pragma once

#include <optional>

#include "machine/Clock.h"

namespace platform {

/// A clock that stands where it is set, and the machine's own until then.
class MemoryClock final : public Clock {
  public:
    DateTime Now() const override;

    void Set(const DateTime& moment) { moment_ = moment; }

  private:
    std::optional<DateTime> moment_;
};

} // namespace platform
