#pragma once

#include <string>

/// Positions in the program's texts count characters; those in the system's count UTF-16 units, of which a
/// character outside the basic plane takes two.
namespace desktop::windows {

/// Number of characters in the first `units` units.
int CharactersIn(const std::wstring& text, int units);

/// Number of units that the first `characters` characters take.
int UnitsOf(const std::wstring& text, int characters);

inline bool IsHighHalf(wchar_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
inline bool IsLowHalf(wchar_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

} // namespace desktop::windows
