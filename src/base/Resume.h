#pragma once

#include "base/RuntimeError.h"

namespace base {

/// Runs one step of a routine that goes on when a step fails: the failure is dropped without a message and
/// the caller's next statement runs. Only RuntimeError is a failure of a step; anything else is a defect and
/// passes.
template <class Step>
void Resume(Step&& step) {
    try {
        step();
    } catch (const RuntimeError&) { // the failure counts as told by what the step left undone
    }
}

} // namespace base
