#pragma once

#include <string>

#include "desktop/cups/CupsMedia.h"

namespace desktop::cups {

/// Papers, bins and margins as a PPD file words them, in the user's language where the file has it. Empty
/// lists if the file is damaged.
CupsMedia MediaOfPpd(const std::string& file);

} // namespace desktop::cups
