#pragma once

#include <new>

#include "base/RuntimeError.h"

namespace precheck {

/// Runs a look that the user has not asked for: one that fails, or finds no memory, costs its findings and
/// not a word.
template <class Look>
void Quietly(Look&& look) {
    try {
        look();
    } catch (const base::RuntimeError&) { // what could not be looked at is not told
    } catch (const std::bad_alloc&) {
    }
}

} // namespace precheck
