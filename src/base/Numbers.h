#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The program's conversions between text and numbers. They do not look at the user's locale: the point is
/// the only decimal mark, and a comma ends the number.
namespace base {

/// Value of the leading number of a text: blanks, one sign, digits, one point. 0 if there is none. No
/// exponent, no hexadecimal, no blank inside. More digits than a double can hold give an infinite value.
double NumericValue(std::string_view text);

/// Nearest whole number, a tie going to the even one.
double RoundTiesToEven(double value);

/// Rounded into 16 or 32 bits. RuntimeError with ErrorOverflow if the value does not fit.
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);

/// NumericValue, rounded into 16 or 32 bits. RuntimeError with ErrorOverflow if it does not fit.
std::int16_t Int16OfText(std::string_view text);
std::int32_t Int32OfText(std::string_view text);

/// A number as decimal text: no blank in front, no exponent, at most 15 significant digits, the point as
/// decimal mark and "0.5" with its zero; a whole number has no point. RuntimeError with ErrorOverflow for a
/// value that is infinite or no number.
std::string NumberText(double value);

} // namespace base
