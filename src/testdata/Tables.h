#pragma once

#include <cstdint>
#include <string_view>

namespace testdata {

/// A table of rows of one width that stand behind one another in the program's own data. The rows of every
/// table are part of the executable: they cost no time at start-up and no heap, and nothing can write to
/// them.
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

/// The test accounts, rows 0 to 22653 of the indexes 0 to 25000. A row has 38 characters: the account in 10
/// digits, the IBAN in 18 and the BIC in 8, with commas between. Row 0 is never drawn; the giro numbers
/// (INGB) stand in rows 1 to 5000, all other banks behind them, both ascending.
const TextTable& AccountTable();

/// The made-up persons, rows 0 to 249 of the indexes 0 to 250. A row has 148 characters: name (80), postcode
/// (7), a blank, street and house number (50), place (10).
const TextTable& PersonTable();

} // namespace testdata
