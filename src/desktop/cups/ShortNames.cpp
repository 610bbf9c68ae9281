#include "desktop/cups/ShortNames.h"

#include <algorithm>

namespace desktop::cups {

namespace {

constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Bytes of a character by its first one.
std::size_t BytesFrom(char first) {
    const auto byte = static_cast<unsigned char>(first);
    return byte >= 0xF0U ? 4 : byte >= 0xE0U ? 3 : byte >= 0xC0U ? 2 : 1;
}

/// A name is better cut in a word than to less than half.
std::string WithoutLastWords(const std::string& name, std::size_t bytes) {
    std::string_view part = WholeCharacters(name, bytes);
    if (const std::size_t blank = part.rfind(' '); part.size() < name.size() && name[part.size()] != ' ' &&
                                                   blank != std::string_view::npos && blank >= bytes / 2) {
        part = part.substr(0, blank);
    }
    return std::string(part);
}

std::string WithoutFirstWords(const std::string& name, std::size_t bytes) {
    std::size_t from = name.size() - (bytes - Ellipsis.size());
    while (from < name.size() && IsContinuation(name[from])) {
        ++from;
    }
    if (const std::size_t blank = name.find(' ', from); blank < name.size() - bytes / 2) {
        from = blank + 1;
    }
    return std::string(Ellipsis) + name.substr(from);
}

} // namespace

std::string_view WholeCharacters(std::string_view text, std::size_t bytes) {
    std::string_view part = text.substr(0, bytes);
    std::size_t last = part.size();
    while (last > 0 && IsContinuation(part[last - 1])) {
        --last;
    }
    if (last > 0 && last - 1 + BytesFrom(part[last - 1]) > part.size()) {
        part = part.substr(0, last - 1);
    }
    return part;
}

std::vector<std::string> ShortNames(const std::vector<std::string>& names, std::size_t bytes) {
    std::vector<std::string> cut;
    cut.reserve(names.size());
    for (const std::string& name : names) {
        cut.push_back(name.size() <= bytes ? name : WithoutLastWords(name, bytes));
    }
    std::vector<std::string> result = cut;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].size() > bytes && std::count(cut.begin(), cut.end(), cut[i]) > 1) {
            result[i] = WithoutFirstWords(names[i], bytes);
        }
    }
    return result;
}

} // namespace desktop::cups
