#include "platform/qt/OptionLine.h"

#include <cups/cups.h>

#include <QList>

#include <utility>

namespace platform::qt {

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

OptionLine::OptionLine(const QByteArray& text, const std::string& queue) : text_(text) {
    const QByteArray name = QByteArray::fromStdString(queue);
    for (qsizetype at = 0; at < text_.size();) {
        const qsizetype end = text_.indexOf('\n', at);
        const qsizetype next = end < 0 ? text_.size() : end + 1;
        if (IsLineOf(text_.mid(at, next - at), name)) {
            begin_ = at;
            size_ = next - at;
        }
        at = next;
    }
}

QByteArray OptionLine::Replaced(const QByteArray& line) const {
    return Exists() ? QByteArray(text_).replace(begin_, size_, line) : line + text_;
}

QByteArray WithOptions(const QByteArray& line, const std::string& queue,
                       const std::map<std::string, std::string>& changes) {
    const QByteArray lineEnd = line.isEmpty() || line.endsWith('\n') ? "\n" : ""; // never part of a word
    QByteArray result = line.isEmpty() ? "Dest " + QByteArray::fromStdString(queue) : line;
    result.chop(line.isEmpty() ? 0 : lineEnd.size());
    std::map<std::string, std::string> left = changes;
    QList<Word> words = WordsOf(result);
    for (qsizetype i = words.size() - 1; i >= FirstOption;
         --i) { // from the end, as places behind a change move
        const QByteArray option = TextOf(result, words[i]);
        const std::string name = option.split('=').front().toStdString();
        const auto change = changes.find(name);
        if (change == changes.end()) {
            continue;
        }
        if (change->second.empty() || left.erase(name) == 0) { // the last one of its name counts
            const qsizetype blankBefore = words[i - 1].End;
            result.remove(blankBefore, words[i].End - blankBefore);
        } else {
            result.replace(words[i].Begin, words[i].End - words[i].Begin,
                           QByteArray::fromStdString(name + "=" + change->second));
        }
    }
    words = WordsOf(result);
    QByteArray added;
    for (const auto& [name, value] : left) {
        if (!value.empty()) {
            added += QByteArray::fromStdString(" " + name + "=" + value);
        }
    }
    return result.insert(words.back().End, added) + lineEnd;
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

bool IsBare(const QByteArray& line) {
    return line.startsWith("Dest ") && WordsOf(line).size() <= FirstOption;
}

} // namespace platform::qt
