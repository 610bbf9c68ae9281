#include "precheck/Wording.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Text.h"
#include "composition/FormPlace.h"
#include "precheck/Lengths.h"

namespace precheck {

namespace text = base::text;

namespace {

constexpr std::size_t LongestShown = 60; ///< characters
constexpr char32_t FirstPrinting = 0x20;
constexpr char32_t FirstOfC1 = 0x7F;
constexpr char32_t LastOfC1 = 0x9F;
constexpr char32_t NoCharacter = 0xFFFD;
constexpr double LeastShownMillimetres = 0.1;

std::string WithComma(const char* begin, const char* end) {
    std::string number(begin, end);
    std::replace(number.begin(), number.end(), '.', ',');
    return number;
}

bool IsControl(char32_t code) {
    return code < FirstPrinting || (code >= FirstOfC1 && code <= LastOfC1);
}

} // namespace

std::string Shown(std::string_view whole) {
    std::string shown;
    std::string_view rest = whole;
    for (std::size_t count = 0; !rest.empty(); ++count) {
        if (count == LongestShown) {
            shown += "…";
            break;
        }
        const text::Decoded first = text::DecodeFirst(rest);
        shown += text::Encode(IsControl(first.Code) ? NoCharacter : first.Code);
        rest.remove_prefix(first.Bytes);
    }
    return shown;
}

std::string Quoted(std::string_view whole) {
    return '"' + Shown(whole) + '"';
}

std::string SettingIs(std::string_view name, std::string_view value) {
    return std::string(name) + (value.empty() ? " is leeg" : " is " + Quoted(value));
}

std::string Decimal(double value, int digits) {
    std::array<char, 400> room; // the longest double has some 310 figures
    return WithComma(room.begin(),
                     std::to_chars(room.begin(), room.end(), value, std::chars_format::fixed, digits).ptr);
}

std::string ExactDecimal(double value) {
    std::array<char, 1200> room; // and the smallest some 1080
    return WithComma(room.begin(),
                     std::to_chars(room.begin(), room.end(), value, std::chars_format::fixed).ptr);
}

std::string ShortDecimal(double value) {
    std::string number = Decimal(value, 1);
    if (number.ends_with(",0")) {
        number.resize(number.size() - 2);
    }
    return number;
}

std::string Millimetres(double twips) {
    return Decimal(std::max(ToMillimetres(twips), LeastShownMillimetres), 1) + " mm";
}

std::string_view PlaceName(std::int16_t positie) {
    switch (positie) {
    case 1:
        return "bovenste formulier";
    case 2:
        return "middelste formulier";
    case 3:
        return "onderste formulier";
    case composition::PlaceUnderLetter:
        return "formulier onder de brief";
    default:
        return "vel";
    }
}

std::string Capital(std::string_view sentence) {
    std::string result = text::Upper(text::Left(sentence, 1));
    result += sentence.substr(text::Left(sentence, 1).size());
    return result;
}

} // namespace precheck
