#pragma once

#include "memory/MemoryDesktop.h"

namespace fault {

/// True if the program has such a message box: its icon, its title, and its text but for numbers.
bool IsKnown(const memory::ShownMessage& message);

} // namespace fault
