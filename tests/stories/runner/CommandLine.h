#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scenario {

/// One line of a script, read word by word. Words are parted by blanks; within double quotes a word may hold
/// blanks and \" \\ \n \0.
class CommandLine {
  public:
    explicit CommandLine(std::string_view line) : line_(line) {}

    /// The next word; ScriptError if there is none, `what` saying what is missing.
    std::string Word(std::string_view what);
    /// The next word, if there is one.
    std::optional<std::string> NextWord();
    /// The next word as a number; ScriptError if it is none.
    double Number(std::string_view what);
    int WholeNumber(std::string_view what);
    std::uint64_t Unsigned(std::string_view what);
    /// The rest of the line as it stands, without the blanks around it.
    std::string_view Rest();
    /// ScriptError if anything is left.
    void End();

  private:
    void SkipBlanks();
    std::string QuotedPart();

    std::string_view line_;
    std::size_t at_ = 0;
};

/// A whole number; ScriptError if the text is anything else.
int WholeNumberOf(std::string_view text, std::string_view what);

} // namespace scenario
