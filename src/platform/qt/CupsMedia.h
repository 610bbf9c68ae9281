#pragma once

#include "platform/qt/PrintQueue.h"

#include <cups/cups.h>

#include <map>
#include <string>
#include <vector>

namespace platform::qt {

/// What a queue offers, and what it takes where nobody chooses.
struct CupsMedia {
    std::vector<Paper> Papers;
    std::vector<Bin> Bins;
    std::int16_t DefaultPaper = 0;
    std::int16_t DefaultBin = 0; ///< 0 if the queue does not tell
};

/// Papers and bins of a queue by the answer to a Get-Printer-Attributes request and its PPD file, which has
/// the wording of its maker and goes first; an empty name if it has none. A queue that tells no papers has
/// its default sheet, one that tells no bins the automatic one, both marked as stand-ins.
CupsMedia MediaOfQueue(ipp_t* attributes, const std::string& ppdFile);

/// The part that the attributes tell.
CupsMedia MediaOfAttributes(ipp_t* attributes);

/// Gives each paper or bin without a code its number from 256 on, by its place in the list, and takes a code
/// away from all but the first that have it.
void NumberMedia(CupsMedia& media);

/// Numbers from 256 on that the papers and bins of a queue have had, by their keywords.
struct MediaNumbers {
    std::map<std::string, std::int16_t> Papers;
    std::map<std::string, std::int16_t> Bins;
};

/// Gives each paper or bin the number that it had before, and no other one that number: a choice made from an
/// older list must not become another paper.
void KeepNumbers(CupsMedia& media, MediaNumbers& numbers);

} // namespace platform::qt
