#pragma once

#include "platform/qt/PrintQueue.h"

#include <cups/cups.h>

#include <string>
#include <vector>

namespace platform::qt {

/// What a queue offers, and what it takes where nobody chooses.
struct CupsMedia {
    std::vector<Paper> Papers;
    std::vector<Bin> Bins;
    std::int16_t DefaultPaper = 0;
    std::int16_t DefaultBin = 0;
};

/// Papers and bins of a queue: by its PPD, which has the wording of its maker, else by its IPP attributes.
/// Empty lists if the server does not answer.
CupsMedia ReadCupsMedia(http_t* http, const std::string& queue);

/// The part that reads the answer to a Get-Printer-Attributes request.
CupsMedia MediaOfAttributes(ipp_t* attributes);

/// Gives each paper or bin without a code its number from 256 on, by its place in the list, and takes a code
/// away from all but the first that have it.
void NumberMedia(CupsMedia& media);

} // namespace platform::qt
