#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The parts of the sentences that findings are told in.
namespace precheck {

/// A text of the user's or the machine's between quotation marks: without control characters and bytes that
/// are no text, and cut where it is long.
std::string Quoted(std::string_view text);

/// The same without the marks.
std::string Shown(std::string_view text);

/// `GMUVerkeer is "0"`, or `GMUVerkeer is leeg`.
std::string SettingIs(std::string_view name, std::string_view value);

/// Of a setting that is read at the start of the program alone, and has been mended in the store since.
inline constexpr const char* SwitchedOnSince = "stond uit toen dit programma startte";
inline constexpr const char* MendSwitchedOn = "Het staat nu aan: start dit programma opnieuw.";

/// A number with a decimal comma.
std::string Decimal(double value, int digits);

/// With as many decimals as it has: "10,04", "10".
std::string ExactDecimal(double value);

/// With one decimal, or none where that is 0: "304,8", "210".
std::string ShortDecimal(double value);

/// A length with its unit, "3,2 mm"; never less than 0,1.
std::string Millimetres(double twips);

/// "bovenste formulier" and so on: 1 to 3 on a sheet, composition::PlaceUnderLetter.
std::string_view PlaceName(std::int16_t positie);

/// With a capital in front.
std::string Capital(std::string_view sentence);

} // namespace precheck
