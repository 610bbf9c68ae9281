#include "desktop/regfile/RegFileSyntax.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "machine/Registry.h"

namespace desktop::regfile {
namespace {

constexpr std::size_t MaximumPath = 32767;                 // characters, as Windows allows
constexpr std::size_t MaximumNameInFile = 2 * MaximumName; // each character may be escaped

constexpr std::size_t HexBytesOnALine = 20;
constexpr std::uint32_t TypeBinary = 3;
constexpr std::uint32_t TypeNumber = 4;

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool AtLineEnd(std::string_view text, std::size_t at) {
    return at >= text.size() || text[at] == '\n' ||
           (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] == '\n'));
}

bool AtCommentOrLineEnd(std::string_view text, std::size_t at) {
    return AtLineEnd(text, at) || text[at] == ';';
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool StartsWith(std::string_view text, std::size_t at, std::string_view prefix) {
    return text.substr(at, prefix.size()) == prefix;
}

/// Position of the quote that closes the text at `at`, or that of the line's end.
std::size_t ClosingQuote(std::string_view text, std::size_t at, std::size_t lineEnd) {
    const std::string_view line = text.substr(0, lineEnd);
    std::size_t quote = line.find('"', at);
    for (std::size_t escape = line.find('\\', at); escape < quote; escape = line.find('\\', at)) {
        at = escape + 2;
        if (quote < at) { // this quote was the one escaped
            quote = line.find('"', at);
        }
    }
    return std::min(quote, lineEnd);
}

/// Up to eight hexadecimal digits.
struct Number {
    std::uint32_t Value = 0;
    std::size_t End = 0;
};
std::optional<Number> ReadNumber(std::string_view text, std::size_t at) {
    Number number{0, at};
    while (number.End < text.size() && HexDigit(text[number.End]) >= 0) {
        if (number.End - at == 8) {
            return std::nullopt;
        }
        number.Value = number.Value * 16 + static_cast<std::uint32_t>(HexDigit(text[number.End]));
        ++number.End;
    }
    return number.End == at ? std::nullopt : std::optional(number);
}

/// "hex:" or "hex(N):".
std::optional<Number> ReadHexPrefix(std::string_view text, std::size_t at) {
    if (StartsWith(text, at, "hex:")) {
        return Number{TypeBinary, at + 4};
    }
    if (!StartsWith(text, at, "hex(")) {
        return std::nullopt;
    }
    std::optional<Number> type = ReadNumber(text, at + 4);
    if (!type || !StartsWith(text, type->End, "):")) {
        return std::nullopt;
    }
    type->End += 2;
    return type;
}

/// Behind a backslash at the end of a line: the first digit of the next line. A line that does not go on with
/// the list is a neighbour to be read by itself, so the list is then damaged.
std::optional<std::size_t> ContinueHexList(std::string_view text, std::size_t at) {
    if (!AtCommentOrLineEnd(text, SkipBlanks(text, at))) {
        return std::nullopt;
    }
    const std::size_t next = SkipBlanks(text, NextLine(text, at));
    if (next >= text.size() || HexDigit(text[next]) < 0) {
        return std::nullopt;
    }
    return next;
}

std::optional<HexList> ReadHexList(std::string_view text, std::size_t at) {
    HexList list{{}, at};
    bool byteMayFollow = true;
    for (;;) {
        at = SkipBlanks(text, at);
        if (AtCommentOrLineEnd(text, at)) {
            return list;
        }
        if (text[at] == '\\') {
            const std::optional<std::size_t> next = ContinueHexList(text, at + 1);
            if (!next) {
                return std::nullopt;
            }
            at = *next;
        } else if (text[at] == ',') {
            if (byteMayFollow) {
                return std::nullopt;
            }
            byteMayFollow = true;
            list.End = ++at;
        } else {
            int byte = HexDigit(text[at]);
            if (byte < 0 || !byteMayFollow) {
                return std::nullopt;
            }
            ++at;
            if (at < text.size() && HexDigit(text[at]) >= 0) {
                byte = byte * 16 + HexDigit(text[at]);
                ++at;
            }
            list.Bytes.push_back(static_cast<char>(byte));
            list.End = at;
            byteMayFollow = false;
        }
    }
}

/// Reads the data at `at` into the entry; false if it is damaged.
bool ReadData(std::string_view text, std::size_t at, Entry& entry) {
    entry.Data = {at, at};
    if (StartsWith(text, at, "\"")) {
        const std::size_t lineEnd = LineEnd(text, at);
        const std::size_t quote = ClosingQuote(text, at + 1, lineEnd);
        if (quote == lineEnd) {
            return false;
        }
        entry.Notation = Notation::Quoted;
        entry.Type = machine::RegSz;
        entry.Data.End = quote + 1;
    } else if (StartsWith(text, at, "-")) {
        entry.Notation = Notation::Deleted;
        entry.Data.End = at + 1;
    } else if (StartsWith(text, at, "dword:")) {
        const std::optional<Number> number = ReadNumber(text, SkipBlanks(text, at + 6));
        if (!number) {
            return false;
        }
        entry.Notation = Notation::Dword;
        entry.Type = TypeNumber;
        entry.Data.End = number->End;
    } else {
        const std::optional<Number> prefix = ReadHexPrefix(text, at);
        const std::optional<HexList> list = prefix ? ReadHexList(text, prefix->End) : std::nullopt;
        if (!list) {
            return false;
        }
        entry.Notation = Notation::Hex;
        entry.Type = prefix->Value;
        entry.Data.End = list->End;
    }
    return AtCommentOrLineEnd(text, SkipBlanks(text, entry.Data.End));
}

} // namespace

std::size_t LineEnd(std::string_view text, std::size_t at) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    return end > at && text[end - 1] == '\r' ? end - 1 : end;
}

std::size_t NextLine(std::string_view text, std::size_t at) {
    const std::size_t end = text.find('\n', at);
    return end == std::string_view::npos ? text.size() : end + 1;
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    while (at < text.size() && IsBlank(text[at])) {
        ++at;
    }
    return at;
}

std::optional<Header> ReadHeader(std::string_view text, std::size_t at) {
    Header header;
    header.Deletes = StartsWith(text, at + 1, "-");
    header.Path.Begin = at + (header.Deletes ? 2 : 1);
    // A path may hold brackets itself, so the last one on the line closes it.
    const std::string_view line = text.substr(at, std::min(LineEnd(text, at) - at, MaximumPath));
    const std::size_t bracket = line.rfind(']');
    if (bracket == std::string_view::npos || at + bracket <= header.Path.Begin) {
        return std::nullopt;
    }
    header.Path.End = at + bracket;
    return header;
}

std::optional<Entry> ReadEntry(std::string_view text, std::size_t at) {
    Entry entry;
    if (text[at] == '@') {
        entry.Name = {at + 1, at + 1};
        at = entry.Name.End;
    } else {
        const std::size_t lineEnd = LineEnd(text, at);
        entry.Name = {at + 1, ClosingQuote(text, at + 1, lineEnd)};
        if (entry.Name.End == lineEnd || entry.Name.End - entry.Name.Begin > MaximumNameInFile) {
            return std::nullopt;
        }
        at = entry.Name.End + 1;
    }
    at = SkipBlanks(text, at);
    if (!StartsWith(text, at, "=")) {
        return std::nullopt;
    }
    return ReadData(text, SkipBlanks(text, at + 1), entry) ? std::optional(entry) : std::nullopt;
}

std::string DwordBytes(std::string_view data) {
    const Number number = ReadNumber(data, SkipBlanks(data, 6)).value_or(Number{});
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>((number.Value >> shift) & 0xFFU));
    }
    return bytes;
}

std::string HexBytes(std::string_view data) {
    return ReadHexList(data, data.find(':') + 1).value_or(HexList{}).Bytes;
}

std::string Unescaped(std::string_view text) {
    std::string result;
    for (;;) {
        const std::size_t backslash = text.find('\\');
        result.append(text.substr(0, backslash));
        if (backslash == std::string_view::npos || backslash + 1 == text.size()) {
            return result;
        }
        result.push_back(text[backslash + 1]);
        text.remove_prefix(backslash + 2);
    }
}

std::string Escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '\\' || c == '"') {
            result.push_back('\\');
        }
        result.push_back(c);
    }
    return result;
}

std::string HexNotation(std::uint32_t type, std::string_view bytes, std::string_view lineEnd) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::array<char, 8> typeDigits{};
    const auto typeEnd =
        std::to_chars(typeDigits.data(), typeDigits.data() + typeDigits.size(), type, 16).ptr;
    std::string result = "hex(" + std::string(typeDigits.data(), typeEnd) + "):";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i > 0) {
            result.push_back(',');
            if (i % HexBytesOnALine == 0) {
                result.append("\\").append(lineEnd).append("  ");
            }
        }
        const unsigned byte = static_cast<unsigned char>(bytes[i]);
        result.push_back(digits[byte >> 4]);
        result.push_back(digits[byte & 0xFU]);
    }
    return result;
}

} // namespace desktop::regfile
