#pragma once

#include <string_view>

#include "memory/PrintQueue.h"

namespace scenario {

/// One OPTION=VALUE of a printer. ScriptError for an unknown option or a value that does not fit.
void ApplyPrinterOption(memory::PrintQueue& queue, std::string_view option);

} // namespace scenario
