#pragma once

#include "machine/Clock.h"

namespace desktop::qt {

/// The machine's clock, in the user's time zone.
class QtClock final : public machine::Clock {
  public:
    machine::DateTime Now() const override;
};

} // namespace desktop::qt
