#pragma once

#include "machine/Clock.h"

namespace platform::windows {

/// The machine's clock, in the user's time zone.
class WinClock final : public Clock {
  public:
    DateTime Now() const override;
};

} // namespace platform::windows
