#pragma once

#include "machine/Clock.h"

namespace desktop::windows {

/// The machine's clock, in the user's time zone.
class WinClock final : public machine::Clock {
  public:
    machine::DateTime Now() const override;
};

} // namespace desktop::windows
