#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// The text of one try, taken line by line and word by word, so that seeds can be read and written by hand.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
    explicit Input(std::string_view text) : rest_(text) {}

    bool Empty() const { return rest_.empty(); }
    std::string_view Rest() const { return rest_; }

    /// Up to the line feed, which is taken as well.
    std::string_view Line() { return UpTo('\n'); }
    std::string_view Word() { return UpTo(' '); }

    /// The next word as a number; 0 if it is none. What is too large ends at the bound.
    template <class Number>
    Number Take() {
        const std::string_view word = Word();
        Number number{};
        const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
        if (result.ec == std::errc::result_out_of_range) {
            return word.starts_with('-') ? std::numeric_limits<Number>::min()
                                         : std::numeric_limits<Number>::max();
        }
        return number;
    }

    template <class Number>
    std::vector<Number> TakeAll() {
        std::vector<Number> numbers;
        while (!Empty()) {
            numbers.push_back(Take<Number>());
        }
        return numbers;
    }

  private:
    std::string_view UpTo(char mark) {
        const std::size_t end = std::min(rest_.find(mark), rest_.size());
        const std::string_view taken = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return taken;
    }

    std::string_view rest_;
};

/// The text with \0, \n and \\ turned into the characters they stand for.
inline std::string WithoutEscapes(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char mark = text[++i];
        result += mark == '0' ? '\0' : mark == 'n' ? '\n' : mark;
    }
    return result;
}

} // namespace fuzz
