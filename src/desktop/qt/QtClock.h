#pragma once

#include "machine/Clock.h"

namespace platform::qt {

/// The machine's clock, in the user's time zone.
class QtClock final : public Clock {
  public:
    DateTime Now() const override;
};

} // namespace platform::qt
