#include "CommandLine.h"

#include <algorithm>
#include <charconv>

#include "ScriptError.h"

namespace scenario {

namespace {

constexpr std::string_view Blanks = " \t";

template <class Value>
Value NumberOf(std::string_view text, std::string_view what) {
    Value value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw ScriptError(std::string(what) + ": no number: " + std::string(text));
    }
    return value;
}

} // namespace

int WholeNumberOf(std::string_view text, std::string_view what) {
    return NumberOf<int>(text, what);
}

void CommandLine::SkipBlanks() {
    at_ = std::min(line_.find_first_not_of(Blanks, at_), line_.size());
}

std::string CommandLine::QuotedPart() {
    std::string part;
    for (++at_; at_ < line_.size(); ++at_) {
        if (line_[at_] == '"') {
            ++at_;
            return part;
        }
        if (line_[at_] == '\\' && at_ + 1 < line_.size()) {
            const char escaped = line_[at_ + 1];
            switch (escaped) {
            case '"':
            case '\\':
                part += escaped;
                ++at_;
                continue;
            case 'n':
                part += '\n';
                ++at_;
                continue;
            case '0':
                part += '\0';
                ++at_;
                continue;
            default: // a backslash of its own, as in a path or in \b
                break;
            }
        }
        part += line_[at_];
    }
    throw ScriptError("a quote is not closed");
}

std::optional<std::string> CommandLine::NextWord() {
    SkipBlanks();
    if (at_ == line_.size()) {
        return std::nullopt;
    }
    std::string word;
    while (at_ < line_.size() && Blanks.find(line_[at_]) == std::string_view::npos) {
        if (line_[at_] == '"') {
            word += QuotedPart();
        } else {
            word += line_[at_++];
        }
    }
    return word;
}

std::string CommandLine::Word(std::string_view what) {
    if (auto word = NextWord()) {
        return *std::move(word);
    }
    throw ScriptError("missing: " + std::string(what));
}

double CommandLine::Number(std::string_view what) {
    return NumberOf<double>(Word(what), what);
}

int CommandLine::WholeNumber(std::string_view what) {
    return WholeNumberOf(Word(what), what);
}

std::uint64_t CommandLine::Unsigned(std::string_view what) {
    return NumberOf<std::uint64_t>(Word(what), what);
}

std::string_view CommandLine::Rest() {
    SkipBlanks();
    std::string_view rest = line_.substr(at_);
    at_ = line_.size();
    const std::size_t last = rest.find_last_not_of(Blanks);
    return last == std::string_view::npos ? std::string_view() : rest.substr(0, last + 1);
}

void CommandLine::End() {
    const std::string_view rest = Rest();
    if (!rest.empty()) {
        throw ScriptError("too much: " + std::string(rest));
    }
}

} // namespace scenario
