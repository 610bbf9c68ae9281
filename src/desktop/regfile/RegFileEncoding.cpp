#include "desktop/regfile/RegFileEncoding.h"

#include <algorithm>

#include "base/Text.h"

namespace desktop::regfile {
namespace {

constexpr std::string_view Utf16Mark("\xFF\xFE", 2);
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr char NotAscii = '\x80';

char32_t Unit(std::string_view bytes, std::size_t at) {
    const auto byte = [bytes](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]));
    };
    return byte(at) | (byte(at + 1) << 8);
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUnit(std::string& bytes, char32_t unit) {
    bytes.push_back(static_cast<char>(unit & 0xFFU));
    bytes.push_back(static_cast<char>((unit >> 8) & 0xFFU));
}

/// UTF-8 in which every byte that is not valid is taken for one of the code page.
std::string Repaired(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const base::text::Decoded first = base::text::DecodeFirst(bytes);
        const std::string_view character = bytes.substr(0, first.Bytes);
        if (first.Bytes == 1 && first.Code >= 0x80) {
            result.append(base::text::FromCodePage(character));
        } else {
            result.append(character);
        }
        bytes.remove_prefix(first.Bytes);
    }
    return result;
}

bool IsAscii(std::string_view bytes) {
    for (const char c : bytes) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            return false;
        }
    }
    return true;
}

} // namespace

std::string ToUtf16(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size() * 2);
    while (!utf8.empty()) {
        const base::text::Decoded first = base::text::DecodeFirst(utf8);
        if (first.Code >= 0x10000) {
            AppendUnit(bytes, 0xD800 + ((first.Code - 0x10000) >> 10));
            AppendUnit(bytes, 0xDC00 + ((first.Code - 0x10000) & 0x3FF));
        } else {
            AppendUnit(bytes, first.Code);
        }
        utf8.remove_prefix(first.Bytes);
    }
    return bytes;
}

std::string FromUtf16(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 2 <= bytes.size(); at += 2) {
        const char32_t unit = Unit(bytes, at);
        if (unit < 0x80) {
            result.push_back(static_cast<char>(unit));
        } else if (IsHighSurrogate(unit) && at + 4 <= bytes.size() && IsLowSurrogate(Unit(bytes, at + 2))) {
            at += 2;
            result.append(base::text::Encode(0x10000 + ((unit - 0xD800) << 10) + (Unit(bytes, at) - 0xDC00)));
        } else {
            result.append(base::text::Encode(unit));
        }
    }
    return result;
}

Encoding::Encoding(std::string_view file) {
    if (file.starts_with(Utf16Mark)) {
        characters_ = Characters::Utf16;
        start_ = Utf16Mark.size();
        width_ = 2;
    } else if (file.starts_with(Utf8Mark)) {
        start_ = Utf8Mark.size();
    }
    constexpr std::string_view four = "REGEDIT4";
    versionFour_ = Narrow(file, {0, std::min(four.size(), Units(file))}) == four;
    if (versionFour_ && start_ == 0) {
        characters_ = Characters::CodePage;
    }
}

std::string_view Encoding::Bytes(std::string_view file, Span span) const {
    return file.substr(Offset(span.Begin), (span.End - span.Begin) * width_);
}

/// The unit as the grammar sees it.
char Encoding::UnitAt(std::string_view file, std::size_t unit) const {
    const char low = file[Offset(unit)];
    const bool isAscii =
        static_cast<unsigned char>(low) < 0x80 && (width_ == 1 || file[Offset(unit) + 1] == 0);
    return width_ == 1 || isAscii ? low : NotAscii;
}

/// The first unit from `from` on that is this ASCII character; the file's end if there is none.
std::size_t Encoding::Find(std::string_view file, char wanted, std::size_t from) const {
    const std::size_t units = Units(file);
    std::size_t byte = file.find(wanted, Offset(from));
    while (byte != std::string_view::npos) {
        const std::size_t unit = (byte - start_) / width_;
        if (unit < units && Offset(unit) == byte && UnitAt(file, unit) == wanted) {
            return unit;
        }
        byte = file.find(wanted, byte + 1);
    }
    return units;
}

bool Encoding::BeginsLine(std::string_view file, std::size_t unit) const {
    while (unit > 0) {
        const char before = UnitAt(file, --unit);
        if (before != ' ' && before != '\t') {
            return before == '\n';
        }
    }
    return true;
}

std::size_t Encoding::NextKeyLine(std::string_view file, std::size_t from) const {
    const std::size_t units = Units(file);
    std::size_t bracket = Find(file, '[', from);
    while (bracket < units && !BeginsLine(file, bracket)) {
        bracket = Find(file, '[', bracket + 1);
    }
    return bracket;
}

std::size_t Encoding::LastLine(std::string_view file) const {
    std::size_t unit = Units(file);
    while (unit > 0 && UnitAt(file, unit - 1) != '\n') {
        --unit;
    }
    return unit;
}

bool Encoding::HasBareLineEnds(std::string_view file) const {
    const std::size_t end = Find(file, '\n', 0);
    return end < Units(file) && (end == 0 || UnitAt(file, end - 1) != '\r');
}

bool Encoding::MayConcern(std::string_view file, std::size_t bracket, std::string_view branch) const {
    const std::size_t units = Units(file);
    std::size_t unit = bracket + 1;
    if (unit < units && UnitAt(file, unit) == '-') {
        ++unit;
    }
    char last = '\\'; // as in front, one more backslash counts for nothing
    for (; unit < units && !branch.empty(); ++unit) {
        const char c = UnitAt(file, unit);
        if (static_cast<unsigned char>(c) >= 0x80) {
            return true; // may stand for a letter of ASCII
        }
        if (c == '\\' && last == '\\') {
            continue;
        }
        if (Lower(c) != Lower(branch.front())) {
            return c == ']'; // above the branch
        }
        last = c;
        branch.remove_prefix(1);
    }
    return true;
}

std::string Encoding::Narrow(std::string_view file, Span span) const {
    const std::string_view bytes = Bytes(file, span);
    if (width_ == 1) {
        return std::string(bytes);
    }
    std::string result(span.End - span.Begin, NotAscii);
    const char* from = bytes.data();
    for (char& c : result) {
        if (from[1] == 0 && static_cast<unsigned char>(from[0]) < 0x80) {
            c = from[0];
        }
        from += 2;
    }
    return result;
}

std::string Encoding::Decode(std::string_view file, Span span) const {
    const std::string_view bytes = Bytes(file, span);
    switch (characters_) {
    case Characters::Utf16:
        return FromUtf16(bytes);
    case Characters::CodePage:
        return base::text::FromCodePage(bytes);
    case Characters::Utf8:
        break;
    }
    return IsAscii(bytes) ? std::string(bytes) : Repaired(bytes);
}

std::string Encoding::Encode(std::string_view utf8) const {
    switch (characters_) {
    case Characters::Utf16:
        return ToUtf16(utf8);
    case Characters::CodePage:
        return base::text::ToCodePage(utf8);
    case Characters::Utf8:
        break;
    }
    return std::string(utf8);
}

std::string Encoding::DecodeHex(std::string_view bytes) const {
    return versionFour_ ? base::text::FromCodePage(bytes) : FromUtf16(bytes);
}

std::string Encoding::EncodeHex(std::string_view utf8) const {
    return versionFour_ ? base::text::ToCodePage(utf8) : ToUtf16(utf8);
}

} // namespace desktop::regfile
