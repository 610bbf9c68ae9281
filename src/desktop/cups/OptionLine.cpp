#include "desktop/cups/OptionLine.h"

#include <QList>

#include <cups/cups.h>

namespace desktop::cups {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// A word of a line; it ends at a blank that no quotes hold.
struct Word {
    qsizetype Begin = 0;
    qsizetype End = 0;
};

QList<Word> WordsOf(const QByteArray& line) {
    QList<Word> words;
    qsizetype at = 0;
    while (true) {
        while (at < line.size() && IsBlank(line[at])) {
            ++at;
        }
        if (at == line.size()) {
            return words;
        }
        const qsizetype begin = at;
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

QByteArray TextOf(const QByteArray& line, const Word& word) {
    return line.mid(word.Begin, word.End - word.Begin);
}

/// The server knows a queue by any case of its letters.
bool IsSameQueue(const QByteArray& a, const QByteArray& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// A line has a keyword and a name before its options.
constexpr qsizetype FirstOption = 2;

bool IsLineOf(const QByteArray& line, const QByteArray& queue) {
    const QList<Word> words = WordsOf(line);
    if (words.size() < FirstOption) {
        return false;
    }
    const QByteArray keyword = TextOf(line, words[0]).toLower();
    return (keyword == "dest" || keyword == "default") && IsSameQueue(TextOf(line, words[1]), queue);
}

} // namespace

QByteArray LineOf(const QByteArray& text, const std::string& queue) {
    const QByteArray name = QByteArray::fromStdString(queue);
    QByteArray found;
    for (const QByteArray& line : text.split('\n')) {
        if (IsLineOf(line, name)) {
            found = line;
        }
    }
    return found;
}

std::map<std::string, std::string> OptionsOf(const QByteArray& line) {
    std::map<std::string, std::string> options;
    const QList<Word> words = WordsOf(line);
    if (words.size() <= FirstOption) {
        return options;
    }
    cups_option_t* list = nullptr;
    const int count = cupsParseOptions(line.mid(words[FirstOption].Begin).constData(), 0, &list);
    for (int i = 0; i < count; ++i) {
        options[list[i].name] = list[i].value;
    }
    cupsFreeOptions(count, list);
    return options;
}

std::string PreferredIn(const QByteArray& text) {
    for (const QByteArray& line : text.split('\n')) {
        const QList<Word> words = WordsOf(line);
        if (words.size() >= FirstOption && TextOf(line, words[0]).toLower() == "default") {
            return TextOf(line, words[1]).split('/').front().toStdString();
        }
    }
    return {};
}

} // namespace desktop::cups
