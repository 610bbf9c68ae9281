#include "wizard/ToetsFilter.h"

#include <array>
#include <string>

#include "base/Text.h"

namespace wizard {

namespace {

constexpr std::int16_t Backspace = 8;

struct Range {
    std::int16_t First;
    std::int16_t Last;
};

constexpr Range One(std::int16_t code) {
    return {code, code};
}

constexpr Range Digits{'0', '9'};
/// Fills a row up: a range that holds no code.
constexpr Range Nothing{1, 0};

/// A kind of text and the characters that it takes.
struct Filter {
    std::string_view Kind;
    std::array<Range, 9> Passes;
};

constexpr std::array<Range, 9> DigitsOnly{One(Backspace), Digits,  Nothing, Nothing, Nothing,
                                          Nothing,        Nothing, Nothing, Nothing};

constexpr Filter Filters[] = {
    {"TELEFOON",
     {One(Backspace), Digits, One(' '), One('+'), One('-'), One('('), One(')'), One('.'), One('m')}},
    {"NUMERIEK", DigitsOnly},
    {"NUMERIEK/VOLLEDIG", DigitsOnly},
    {"DATUM", DigitsOnly},
    {"DATUM/VOLLEDIG", DigitsOnly},
    {"NUMTEKEN", {One(Backspace), Digits, One(','), One('.'), Nothing, Nothing, Nothing, Nothing, Nothing}},
    {"ALPHA",
     {One('-'), One('\''), Range{'A', 'Z'}, Range{'a', 'z'}, Range{128, 255}, One(Backspace), One('.'),
      One(' '), Nothing}},
};

} // namespace

std::int16_t ToetsFilter(std::int16_t& toets, std::string_view soort) {
    const std::string kind = base::text::Upper(base::text::Trim(soort));
    for (const Filter& filter : Filters) {
        if (filter.Kind != kind) {
            continue;
        }
        for (const Range& range : filter.Passes) {
            if (toets >= range.First && toets <= range.Last) {
                const bool decimalMark = kind == "NUMTEKEN" && toets == ',';
                return decimalMark ? std::int16_t{'.'} : toets;
            }
        }
        return 0;
    }
    return toets;
}

} // namespace wizard
