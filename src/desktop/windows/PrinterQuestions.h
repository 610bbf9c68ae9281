#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "machine/PrinterCondition.h"

/// What a printer is asked without changing anything about it. Each may take as long as the network to the
/// printer's machine does.
namespace desktop::windows {

/// One that cannot be opened is not reachable.
machine::PrinterCondition AskCondition(const std::string& printer);

/// The sheet of a paper (DMPAPER_...), Portrait or Landscape; nothing if the printer has no such paper, or
/// cannot be asked.
std::optional<machine::SheetArea> AskSheet(const std::string& printer, std::int16_t paper,
                                           std::int16_t orientation);

} // namespace desktop::windows
