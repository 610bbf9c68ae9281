#pragma once

#include <cstdint>
#include <string>

/// The number routines of the OCR line.
namespace payment {

/// The value in decimal, filled with leading zeros to `breedte` characters. A longer value loses its
/// rightmost digits and a negative value keeps its minus sign behind the zeros; a width of 0 or less gives
/// the empty text.
std::string NulVulling(std::int32_t waarde, std::int16_t breedte);

/// The check digit, one character, of the last 15 digits of a payment reference and of the last 8 digits of
/// an amount in cents. What is no digit counts as 0. The blanks at both ends of the caller's text are taken
/// off.
std::string KenmerkControle(std::string& tekst);
std::string BedragControle(std::string& tekst);

} // namespace payment
