#pragma once

#include <cstdint>
#include <string>

#include "machine/Platform.h"
#include "machine/Spooler.h"

namespace printmanager {

/// One field of a printer's stored defaults, named by its DM_... flag. 0 for an unknown flag and on any
/// failure.
std::int16_t GetDevModeField(machine::Spooler& spooler, const std::string& printer, std::int32_t selector);

/// Writes one field of a printer's stored defaults, if the driver offers that field, and gives the spooler
/// time by yielding to the message loop. -1 if the spooler refused the write; else 0, also without a
/// connection.
std::int16_t SetDevModeField(machine::Platform& platform, const std::string& printer, std::int32_t selector,
                             std::int16_t value);

} // namespace printmanager
