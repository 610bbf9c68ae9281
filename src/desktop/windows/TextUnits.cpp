#include "desktop/windows/TextUnits.h"

#include <algorithm>

namespace desktop::windows {

namespace {

int UnitsAt(const std::wstring& text, int at) {
    const auto here = static_cast<std::size_t>(at);
    return here + 1 < text.size() && IsHighHalf(text[here]) && IsLowHalf(text[here + 1]) ? 2 : 1;
}

} // namespace

int CharactersIn(const std::wstring& text, int units) {
    const int end = std::min(units, static_cast<int>(text.size()));
    int characters = 0;
    for (int at = 0; at < end; at += UnitsAt(text, at)) {
        ++characters;
    }
    return characters;
}

int UnitsOf(const std::wstring& text, int characters) {
    int at = 0;
    for (int count = 0; count < characters && at < static_cast<int>(text.size()); ++count) {
        at += UnitsAt(text, at);
    }
    return at;
}

} // namespace desktop::windows
