#pragma once

#include <map>
#include <string>
#include <vector>

#include <cups/ipp.h>

#include "desktop/cups/PrintQueue.h"
#include "desktop/cups/SheetSize.h"

namespace desktop::cups {

/// Sizes that one can make up: each side lies between those of two sheets, the ends taken in.
struct SizeRange {
    SheetSize Least;
    SheetSize Most;
};

/// An option of the PPD that can put more on the paper than the document, and that no job says.
struct ImposingOption {
    std::string Keyword;
    std::string Name;                           ///< as the driver words it
    std::string Preset;                         ///< the choice where the user has none
    std::map<std::string, std::string> Choices; ///< those that do, with their wording
};

/// What a queue offers, and what it takes where nobody chooses.
struct CupsMedia {
    std::vector<Paper> Papers;
    std::vector<Bin> Bins;
    std::int16_t DefaultPaper = 0;
    std::int16_t DefaultBin = 0; ///< 0 if the queue does not tell

    std::vector<SizeRange> CustomSizes;
    Paper CustomMargins;       ///< of a sheet of such a size
    bool IsByPpd = false;      ///< such a size has the PPD's keyword
    std::string PresetKeyword; ///< of the paper that the queue takes where nobody chooses

    /// Options of the PPD that would change a document's pages, with the choice that leaves them as they are.
    std::map<std::string, std::string> PlainChoices;
    std::vector<ImposingOption> Imposing;

    std::string Resolution; ///< where nobody chooses, as the PPD words it ("600x300dpi")
};

/// Papers and bins of a queue by the answer to a Get-Printer-Attributes request and its PPD file, which has
/// the wording of its maker and goes first; an empty name if it has none. The sheet of three forms is among
/// the papers of each queue that can take it. A queue that tells no papers has its default sheet, one that
/// tells no bins the automatic one and one that does not tell which bin it takes by itself that choice, all
/// marked as stand-ins.
CupsMedia MediaOfQueue(ipp_t* attributes, const std::string& ppdFile);

/// Adds a sheet of this size if the queue takes it and has none; it has no number yet.
void OfferSheet(CupsMedia& media, const SheetSize& size, const std::string& name);

/// Adds the sheet that the user has made up, where the keyword is that of such a size and the queue takes it.
void OfferOwnSheet(CupsMedia& media, const std::string& keyword);

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

} // namespace desktop::cups
