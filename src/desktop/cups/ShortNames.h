#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace desktop::cups {

/// The beginning of a UTF-8 text that takes `bytes` at most and ends with a whole character.
std::string_view WholeCharacters(std::string_view text, std::size_t bytes);

/// The names with `bytes` at most each: one that is longer loses its last words, or its first ones where that
/// would make it the same as another.
std::vector<std::string> ShortNames(const std::vector<std::string>& names, std::size_t bytes);

} // namespace desktop::cups
