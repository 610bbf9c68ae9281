#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "machine/Platform.h"

namespace printmanager {

/// Size of a sheet in tenths of a millimetre.
struct PaperDimensions {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
};

/// What a printer's driver offers and what its stored defaults hold. Names, identifiers and dimensions of one
/// paper or bin stand at the same position.
struct PaperAndBins {
    std::vector<std::string> PaperNames;
    std::vector<std::int16_t> PaperIds;
    std::vector<PaperDimensions> PaperSizes;
    std::int16_t CurrentPaper = 0;
    std::vector<std::string> BinNames;
    std::vector<std::int16_t> BinIds;
    std::int16_t CurrentBin = 0;
};

/// Asks the driver of an installed printer for its papers and bins. 0 on success; -1 on any failure, and
/// `lists` then means nothing.
std::int16_t GetPaperAndBins(machine::Platform& platform, const std::string& printer, PaperAndBins& lists);

/// Position of the printer of exactly this name among the installed ones, or -1.
int FindPrinter(machine::Printers& printers, const std::string& name);

} // namespace printmanager
