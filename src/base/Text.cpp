#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace base::text {
namespace {

constexpr char32_t Replacement = 0xFFFD;

// The characters of Windows-1252 at the bytes 0x80 to 0x9F; all other bytes are their own code point. The
// five bytes that the page leaves open stand for the control character of the same number, so every byte
// survives a round trip.
constexpr std::array<char16_t, 32> CodePage80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t ByteAt(std::string_view s, std::size_t i) {
    return static_cast<std::uint8_t>(s[i]);
}

// Number of ASCII bytes at the start: most texts are nothing else, and these need no decoding.
std::size_t AsciiRun(std::string_view s) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t i = 0;
    for (std::uint64_t word = 0; i + sizeof word <= s.size(); i += sizeof word) {
        std::memcpy(&word, s.data() + i, sizeof word);
        if ((word & highBits) != 0) {
            break;
        }
    }
    while (i < s.size() && ByteAt(s, i) < 0x80) {
        ++i;
    }
    return i;
}

// Number of bytes of the first `count` characters.
std::size_t BytesOf(std::string_view s, std::size_t count) {
    std::size_t at = 0;
    while (count > 0 && at < s.size()) {
        const std::size_t ascii = std::min(AsciiRun(s.substr(at, count)), count);
        if (ascii > 0) {
            at += ascii;
            count -= ascii;
        } else {
            at += DecodeFirst(s.substr(at)).Bytes;
            --count;
        }
    }
    return at;
}

char32_t UpperOf(char32_t c) {
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) {
        return c - 0x20;
    }
    switch (c) {
    case 0xFF:
        return 0x178;
    case 0x153:
    case 0x161:
    case 0x17E:
        return c - 1;
    default:
        return c;
    }
}

char32_t LowerOf(char32_t c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) {
        return c + 0x20;
    }
    switch (c) {
    case 0x178:
        return 0xFF;
    case 0x152:
    case 0x160:
    case 0x17D:
        return c + 1;
    default:
        return c;
    }
}

/// `map` gives ASCII for ASCII.
template <class MapCharacter>
std::string Mapped(std::string_view s, MapCharacter map) {
    std::string result(s.substr(0, AsciiRun(s)));
    s.remove_prefix(result.size());
    for (char& c : result) {
        c = static_cast<char>(map(static_cast<std::uint8_t>(c)));
    }
    while (!s.empty()) {
        const Decoded first = DecodeFirst(s);
        const char32_t mapped = map(first.Code);
        if (mapped == first.Code) {
            result.append(s.substr(0, first.Bytes)); // as it stands, bytes that are no UTF-8 included
        } else if (mapped < 0x80) {
            result.push_back(static_cast<char>(mapped));
        } else {
            result.append(Encode(mapped));
        }
        s.remove_prefix(first.Bytes);
    }
    return result;
}

char CodePageByte(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
        return static_cast<char>(code);
    }
    const auto* const found = std::find(CodePage80.begin(), CodePage80.end(), code);
    return found == CodePage80.end() ? '?' : static_cast<char>(0x80 + (found - CodePage80.begin()));
}

} // namespace

std::size_t Length(std::string_view s) {
    std::size_t count = 0;
    while (!s.empty()) {
        const std::size_t ascii = AsciiRun(s);
        count += ascii;
        s.remove_prefix(ascii);
        if (!s.empty()) {
            s.remove_prefix(DecodeFirst(s).Bytes);
            ++count;
        }
    }
    return count;
}

std::string_view Left(std::string_view s, std::size_t count) {
    return s.substr(0, BytesOf(s, count));
}

std::string_view Right(std::string_view s, std::size_t count) {
    const std::size_t length = Length(s);
    return count >= length ? s : s.substr(BytesOf(s, length - count));
}

std::string_view Mid(std::string_view s, std::size_t start, std::size_t count) {
    if (start > 1) {
        s.remove_prefix(BytesOf(s, start - 1));
    }
    return Left(s, count);
}

std::string_view Trim(std::string_view s) {
    const std::size_t first = s.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

std::string Upper(std::string_view s) {
    return Mapped(s, UpperOf);
}

std::string Lower(std::string_view s) {
    return Mapped(s, LowerOf);
}

Decoded DecodeBeyondAscii(std::string_view s) {
    const std::uint8_t lead = ByteAt(s, 0);
    std::size_t bytes = 0;
    char32_t code = 0;
    char32_t smallest = 0; // below it the same character has a shorter form, so this one is not valid
    if ((lead & 0xE0) == 0xC0) {
        bytes = 2;
        code = lead & 0x1FU;
        smallest = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        bytes = 3;
        code = lead & 0x0FU;
        smallest = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        bytes = 4;
        code = lead & 0x07U;
        smallest = 0x10000;
    }
    if (bytes == 0 || s.size() < bytes) {
        return {Replacement, 1};
    }
    for (std::size_t i = 1; i < bytes; ++i) {
        const std::uint8_t next = ByteAt(s, i);
        if ((next & 0xC0) != 0x80) {
            return {Replacement, 1};
        }
        code = (code << 6) | (next & 0x3FU);
    }
    if (code < smallest || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        return {Replacement, 1};
    }
    return {code, bytes};
}

std::string Encode(char32_t code) {
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        code = Replacement;
    }
    const auto tail = [code](unsigned shift) { return static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        return {static_cast<char>(code)};
    }
    if (code < 0x800) {
        return {static_cast<char>(0xC0U | (code >> 6)), tail(0)};
    }
    if (code < 0x10000) {
        return {static_cast<char>(0xE0U | (code >> 12)), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0U | (code >> 18)), tail(12), tail(6), tail(0)};
}

std::string ToCodePage(std::string_view utf8) {
    std::string result(utf8.substr(0, AsciiRun(utf8)));
    utf8.remove_prefix(result.size());
    while (!utf8.empty()) {
        const Decoded first = DecodeFirst(utf8);
        result.push_back(CodePageByte(first.Code));
        utf8.remove_prefix(first.Bytes);
    }
    return result;
}

std::string FromCodePage(std::string_view bytes) {
    std::string result(bytes.substr(0, AsciiRun(bytes)));
    for (std::size_t i = result.size(); i < bytes.size(); ++i) {
        const std::uint8_t byte = ByteAt(bytes, i);
        if (byte < 0x80) {
            result.push_back(bytes[i]);
        } else {
            result.append(Encode(byte < 0xA0 ? CodePage80[byte - 0x80U] : byte));
        }
    }
    return result;
}

} // namespace base::text
