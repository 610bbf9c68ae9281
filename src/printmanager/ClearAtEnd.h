#pragma once

#include "base/Boolean.h"

namespace printmanager {

/// Takes a flag down on every way out of a block, so that no failure of whatever kind leaves a form that
/// takes no command and never closes.
class ClearAtEnd {
  public:
    explicit ClearAtEnd(base::Boolean& flag) : flag_(flag) {}
    ~ClearAtEnd() { flag_ = false; }
    ClearAtEnd(const ClearAtEnd&) = delete;
    ClearAtEnd& operator=(const ClearAtEnd&) = delete;

  private:
    base::Boolean& flag_;
};

} // namespace printmanager
