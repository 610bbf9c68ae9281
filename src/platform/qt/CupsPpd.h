#pragma once

#include "platform/qt/CupsMedia.h"

#include <cups/cups.h>

#include <string>

namespace platform::qt {

/// Fetches a queue's PPD into a temporary file that the caller removes; an empty name if it has none.
std::string FetchPpd(http_t* http, const std::string& queue);

/// Papers, bins and margins as a PPD file words them, in the user's language where the file has it. Empty
/// lists if the file is damaged.
CupsMedia MediaOfPpd(const std::string& file);

} // namespace platform::qt
