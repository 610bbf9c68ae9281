#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "state/AppState.h"

namespace machine {
class Locale;
class Registry;
} // namespace machine

namespace state {

/// Reads the calibration, the form type and the contract form from the settings store into `state`, so that a
/// change made in the main application counts from the next document. With `metIncassant` the creditor is
/// read as well; without it the creditor stays as the user has edited it.
void LaadInstellingen(AppState& state, machine::Registry& registry, bool metIncassant);

/// Where the main application keeps its settings, below the current user's root.
inline constexpr const char* TarviksKey = "Software\\Ondor\\Tarvik\\CurrentVersion";

/// The size of the OCR font, points as text, and what it is where none is set.
inline constexpr const char* FontSizeSetting = "GMUFontSize";
inline constexpr const char* DefaultFontSize = "12";

/// What holds from the program's start to its end. First the OCR font and the service bureau.
void LaadLettertype(AppState& state, machine::Registry& registry);
/// Then the font's size, payment traffic, the paper that a run may force, the contract form and the kind of
/// printer.
void LaadStartInstellingen(AppState& state, machine::Registry& registry);

/// Text of a value under the key of all settings; empty if it is missing.
std::string LeesInstelling(const AppState& state, machine::Registry& registry, std::string_view name);

/// Writes a value under the key of all settings; nobody is told where that fails.
void SchrijfInstelling(const AppState& state, machine::Registry& registry, std::string_view name,
                       const std::string& tekst);

/// True for a setting that is on: "1" is, any other text is not.
bool IsAan(std::string_view tekst);

/// The whole number that a setting holds. What does not fit 16 bits counts as 0.
std::int16_t GetalInstelling(const std::string& tekst);

/// An item of the user's regional settings, or the empty text.
std::string LeesLocaleTekst(machine::Locale& locale, std::int32_t lcid, std::int32_t item);

} // namespace state
