#pragma once

#include <algorithm>
#include <string_view>

/// The program's texts count characters. Those of a toolkit count units of UTF-16, of which a character
/// outside the basic plane takes two; `Unit` is the toolkit's type of one.
namespace forms {

template <class Unit>
bool IsHighHalf(Unit unit) {
    return (unit & 0xFC00) == 0xD800;
}
template <class Unit>
bool IsLowHalf(Unit unit) {
    return (unit & 0xFC00) == 0xDC00;
}

/// Number of units of the character at a place; half a character counts as a whole one.
template <class Unit>
int UnitsAt(std::basic_string_view<Unit> text, int at) {
    const auto here = static_cast<std::size_t>(at);
    return here + 1 < text.size() && IsHighHalf(text[here]) && IsLowHalf(text[here + 1]) ? 2 : 1;
}

/// Number of characters in the first `units` units.
template <class Unit>
int CharactersIn(std::basic_string_view<Unit> text, int units) {
    const int end = std::min(units, static_cast<int>(text.size()));
    int characters = 0;
    for (int at = 0; at < end; at += UnitsAt(text, at)) {
        ++characters;
    }
    return characters;
}

/// Number of units that the first `characters` characters take.
template <class Unit>
int UnitsOf(std::basic_string_view<Unit> text, int characters) {
    int at = 0;
    for (int count = 0; count < characters && at < static_cast<int>(text.size()); ++count) {
        at += UnitsAt(text, at);
    }
    return at;
}

/// The part in which a text differs from another, in units: before it and behind it they are the same.
struct TextDifference {
    int Start = 0;
    int Removed = 0;  ///< of the text that was there
    int Inserted = 0; ///< of the text that comes

    bool operator==(const TextDifference&) const = default;
};

/// What a user has changed where `present` has become `wanted`: put in as one edit, it can be undone as one.
template <class Unit>
TextDifference DifferenceOf(std::basic_string_view<Unit> present, std::basic_string_view<Unit> wanted) {
    const auto head = std::mismatch(present.begin(), present.end(), wanted.begin(), wanted.end());
    const auto start = static_cast<std::size_t>(head.first - present.begin());
    present.remove_prefix(start);
    wanted.remove_prefix(start);
    const auto tail = std::mismatch(present.rbegin(), present.rend(), wanted.rbegin(), wanted.rend());
    return {static_cast<int>(start), static_cast<int>(present.rend() - tail.first),
            static_cast<int>(wanted.rend() - tail.second)};
}

} // namespace forms
