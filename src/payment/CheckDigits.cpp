#include "payment/CheckDigits.h"

#include <array>
#include <charconv>
#include <string_view>

#include "base/Text.h"

namespace payment {

namespace text = base::text;

namespace {

constexpr std::size_t ReferenceDigits = 15;
constexpr std::size_t AmountDigits = 8;

// From the rightmost digit to the left.
constexpr std::array<int, ReferenceDigits> Weights = {2, 4, 8, 5, 10, 9, 7, 3, 6, 1, 2, 4, 8, 5, 10};

void TrimInPlace(std::string& tekst) {
    const std::size_t last = tekst.find_last_not_of(' ');
    tekst.erase(last == std::string::npos ? 0 : last + 1);
    tekst.erase(0, tekst.find_first_not_of(' '));
}

// A text of fewer than `count` digits needs no zeros put before it: they would add nothing.
std::string CheckDigit(std::string& tekst, std::size_t count) {
    TrimInPlace(tekst);
    std::string_view digits = text::Right(tekst, count);
    int sum = 0;
    for (std::size_t place = text::Length(digits); place > 0; --place) {
        const text::Decoded first = text::DecodeFirst(digits);
        if (first.Code >= U'0' && first.Code <= U'9') {
            sum += static_cast<int>(first.Code - U'0') * Weights[place - 1];
        }
        digits.remove_prefix(first.Bytes);
    }
    // 11 less the remainder, where 11 becomes 0 and 10 becomes 1.
    const int check = 11 - sum % 11;
    const int digit = check == 11 ? 0 : check == 10 ? 1 : check;
    return {static_cast<char>('0' + digit)};
}

} // namespace

std::string NulVulling(std::int32_t waarde, std::int16_t breedte) {
    if (breedte <= 0) {
        return {};
    }
    const auto width = static_cast<std::size_t>(breedte);
    std::array<char, 12> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), waarde);
    const std::string_view digits(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    if (digits.size() >= width) {
        return std::string(digits.substr(0, width));
    }
    return std::string(width - digits.size(), '0').append(digits);
}

std::string KenmerkControle(std::string& tekst) {
    return CheckDigit(tekst, ReferenceDigits);
}

std::string BedragControle(std::string& tekst) {
    return CheckDigit(tekst, AmountDigits);
}

} // namespace payment
