#pragma once

#include <cstdint>
#include <string_view>

namespace base {

/// A table of rows of one width that stand behind one another in a text that outlives it.
class TextTable {
  public:
    /// `rows` is the text of all filled rows. Rows behind them, up to `lastIndex`, are there and empty.
    constexpr TextTable(std::string_view rows, std::int32_t rowWidth, std::int32_t lastIndex)
        : rows_(rows), rowWidth_(rowWidth), lastIndex_(lastIndex) {}

    /// The row at an index of 0 to LastIndex(); RuntimeError with ErrorSubscriptOutOfRange beyond.
    std::string_view operator[](std::int32_t index) const;

    constexpr std::int32_t FilledRows() const { return static_cast<std::int32_t>(rows_.size()) / rowWidth_; }
    constexpr std::int32_t LastIndex() const { return lastIndex_; }

  private:
    std::string_view rows_;
    std::int32_t rowWidth_;
    std::int32_t lastIndex_;
};

} // namespace base
