#pragma once

#include "desktop/cups/CupsMedia.h"

#include <string>

namespace platform::qt {

/// Papers, bins and margins as a PPD file words them, in the user's language where the file has it. Empty
/// lists if the file is damaged.
CupsMedia MediaOfPpd(const std::string& file);

} // namespace platform::qt
