#pragma once

#include <string>

#include "desktop/cups/SheetSize.h"

namespace desktop::cups {

/// A bin as the user reads it, by its keyword in a PPD ("ByPassTray") or in a printer's attributes
/// ("by-pass-tray"), for a printer that has no words of its own. A keyword that is not known stays.
std::string WordingOfBin(const std::string& keyword);

/// The same for a paper ("EnvDL", "na_letter_8.5x11in"), by its size where the keyword is not known.
std::string WordingOfPaper(const std::string& keyword, const SheetSize& size);

} // namespace desktop::cups
