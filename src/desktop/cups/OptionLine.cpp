#include "desktop/cups/OptionLine.h"

#include <cstddef>
#include <vector>

#include <cups/cups.h>

#include "desktop/cups/AsciiCase.h"

namespace desktop::cups {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = text.find('\n', begin);
        lines.push_back(text.substr(begin, end - begin));
        if (end == std::string::npos) {
            return lines;
        }
        begin = end + 1;
    }
}

/// A word of a line; it ends at a blank that no quotes hold.
struct Word {
    std::size_t Begin = 0;
    std::size_t End = 0;
};

std::vector<Word> WordsOf(const std::string& line) {
    std::vector<Word> words;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && IsBlank(line[at])) {
            ++at;
        }
        if (at == line.size()) {
            return words;
        }
        const std::size_t begin = at;
        char quote = 0;
        for (; at < line.size() && (quote != 0 || !IsBlank(line[at])); ++at) {
            if (line[at] == '\\' && at + 1 < line.size()) {
                ++at;
            } else if (quote != 0) {
                quote = line[at] == quote ? '\0' : quote;
            } else if (line[at] == '"' || line[at] == '\'') {
                quote = line[at];
            }
        }
        words.push_back({begin, at});
    }
}

std::string TextOf(const std::string& line, const Word& word) {
    return line.substr(word.Begin, word.End - word.Begin);
}

/// A line has a keyword and a name before its options.
constexpr std::size_t FirstOption = 2;

bool IsLineOf(const std::string& line, const std::string& queue) {
    const std::vector<Word> words = WordsOf(line);
    if (words.size() < FirstOption) {
        return false;
    }
    const std::string keyword = Lower(TextOf(line, words[0]));
    return (keyword == "dest" || keyword == "default") && Lower(TextOf(line, words[1])) == Lower(queue);
}

} // namespace

std::string LineOf(const std::string& text, const std::string& queue) {
    std::string found;
    for (const std::string& line : LinesOf(text)) {
        if (IsLineOf(line, queue)) {
            found = line;
        }
    }
    return found;
}

std::map<std::string, std::string> OptionsOf(const std::string& line) {
    std::map<std::string, std::string> options;
    const std::vector<Word> words = WordsOf(line);
    if (words.size() <= FirstOption) {
        return options;
    }
    cups_option_t* list = nullptr;
    const int count = cupsParseOptions(line.c_str() + words[FirstOption].Begin, 0, &list);
    for (int i = 0; i < count; ++i) {
        options[list[i].name] = list[i].value;
    }
    cupsFreeOptions(count, list);
    return options;
}

std::string PreferredIn(const std::string& text) {
    for (const std::string& line : LinesOf(text)) {
        const std::vector<Word> words = WordsOf(line);
        if (words.size() >= FirstOption && Lower(TextOf(line, words[0])) == "default") {
            const std::string name = TextOf(line, words[1]);
            return name.substr(0, name.find('/'));
        }
    }
    return {};
}

} // namespace desktop::cups
