#include "desktop/cups/AsciiCase.h"

#include <algorithm>

namespace desktop::cups {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

} // namespace desktop::cups
