#pragma once

#include "forms/Desktop.h"

namespace printmanager {

/// Lets windows draw again at the end of a block, also when a failure ends it. A locked window looks frozen.
class DrawingUnlock {
  public:
    explicit DrawingUnlock(forms::Desktop& desktop) : desktop_(desktop) {}
    ~DrawingUnlock() { desktop_.LockWindowUpdate(0); }
    DrawingUnlock(const DrawingUnlock&) = delete;
    DrawingUnlock& operator=(const DrawingUnlock&) = delete;

  private:
    forms::Desktop& desktop_;
};

} // namespace printmanager
