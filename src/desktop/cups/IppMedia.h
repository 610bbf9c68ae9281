#pragma once

#include "desktop/cups/CupsMedia.h"

namespace desktop::cups {

/// Papers, bins and margins as the attributes of a queue tell them.
CupsMedia MediaOfAttributes(ipp_t* attributes);

} // namespace desktop::cups
