#pragma once

#include <cstdint>
#include <string_view>

#include "machine/Printer.h"

namespace desktop::cups {

using machine::PaperLegal;

inline constexpr std::int16_t PaperLetter = 1;
inline constexpr std::int16_t PaperA4 = 9;
inline constexpr std::int16_t PaperA5 = 11;

inline constexpr std::int16_t BinAutomatic = 7;
inline constexpr std::int16_t BinOfPrinter = 15;

/// First number for a paper or bin that has no code of its own.
inline constexpr std::int16_t FirstPrivateId = 256;

/// Windows' code (DMPAPER_...) of a paper by its PWG 5101.1 name ("iso_a4_210x297mm"); 0 if it has none.
std::int16_t PaperCode(std::string_view pwgName);

/// Windows' code (DMBIN_...) of a bin by the PPD's InputSlot choice or the PWG media-source keyword, in any
/// letter case; 0 if it has none.
std::int16_t BinCode(std::string_view choice);

} // namespace desktop::cups
