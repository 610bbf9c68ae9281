#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/RuntimeError.h"

namespace base {
namespace {

constexpr int SignificantDigits = 15;
constexpr double WholeLimit = 1e15; // below it a whole number keeps all its digits

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

template <class Whole>
Whole Rounded(double value) {
    const double whole = RoundTiesToEven(value);
    // Written so that a value that is no number fails as well.
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max())) {
        throw Overflow();
    }
    return static_cast<Whole>(whole);
}

} // namespace

double NumericValue(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }

    // The extent of the number. Up to 15 digits are exact in `digits`, and so is the power of ten: their
    // quotient is rounded once, to the nearest double.
    static constexpr std::array<double, SignificantDigits + 1> powersOfTen = {
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::int64_t digits = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
    bool point = false;
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        const char c = text[end];
        if (IsDigit(c)) {
            if (++count <= SignificantDigits) {
                digits = digits * 10 + (c - '0');
            }
            decimals += point ? 1 : 0;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }

    double value = 0;
    if (count == 0) {
        return 0;
    }
    if (count <= SignificantDigits) {
        value = static_cast<double>(digits) / powersOfTen[decimals];
    } else if (std::from_chars(text.data(), text.data() + end, value, std::chars_format::fixed).ec ==
               std::errc::result_out_of_range) {
        // Only a number before the point can be too large; behind it, it can only be too small.
        const std::size_t firstDigit = text.find_first_not_of('0');
        value = firstDigit < count - decimals ? std::numeric_limits<double>::infinity() : 0;
    }
    return negative ? -value : value;
}

double RoundTiesToEven(double value) {
    return std::nearbyint(value);
}

std::int16_t ToInt16(double value) {
    return Rounded<std::int16_t>(value);
}

std::int32_t ToInt32(double value) {
    return Rounded<std::int32_t>(value);
}

std::int16_t Int16OfText(std::string_view text) {
    return ToInt16(NumericValue(text));
}

std::int32_t Int32OfText(std::string_view text) {
    return ToInt32(NumericValue(text));
}

std::string NumberText(double value) {
    std::array<char, 32> buffer;
    if (std::abs(value) < WholeLimit && value == std::trunc(value)) {
        const auto end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<std::int64_t>(value));
        return {buffer.data(), end.ptr};
    }
    if (!std::isfinite(value)) {
        throw Overflow();
    }

    // "d.dddddddddddddde+xx": the digits rounded to 15, and where the point belongs among them.
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                   std::chars_format::scientific, SignificantDigits - 1);
    const std::string_view scientific(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const std::size_t mark = scientific.find('e');
    int exponent = 0;
    const std::size_t exponentAt = mark + (scientific[mark + 1] == '+' ? 2 : 1);
    std::from_chars(scientific.data() + exponentAt, scientific.data() + scientific.size(), exponent);

    std::string digits(1, scientific[0]);
    digits.append(scientific.substr(2, mark - 2));
    digits.erase(digits.find_last_not_of('0') + 1);

    std::string result(value < 0 ? "-" : "");
    if (exponent < 0) {
        result.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
    } else {
        const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() <= whole) {
            result.append(digits).append(whole - digits.size(), '0');
        } else {
            result.append(digits, 0, whole).append(1, '.').append(digits, whole);
        }
    }
    return result;
}

} // namespace base
