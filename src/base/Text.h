#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text routines on UTF-8. A length, a position and a cut count characters (code points), never bytes. Bytes
/// that are no valid UTF-8 count as one character each, so any text from outside can be handled.
namespace base::text {

/// Number of characters.
std::size_t Length(std::string_view s);

/// The first `count` characters, or all of them if there are fewer.
std::string_view Left(std::string_view s, std::size_t count);

/// The last `count` characters, or all of them if there are fewer.
std::string_view Right(std::string_view s, std::size_t count);

/// The characters from `start` on, counted from 1; at most `count` of them. Empty beyond the end.
std::string_view Mid(std::string_view s, std::size_t start, std::size_t count = std::string_view::npos);

/// Without the blanks (U+0020 alone) at both ends.
std::string_view Trim(std::string_view s);

/// In capitals or small letters: ASCII and the accented Latin letters of Windows-1252; all else stays.
std::string Upper(std::string_view s);
std::string Lower(std::string_view s);

/// The code point of the first character and the number of bytes that it takes. A byte that is no valid UTF-8
/// gives U+FFFD and 1; an empty text gives 0 and 0.
struct Decoded {
    char32_t Code;
    std::size_t Bytes;
};
Decoded DecodeFirst(std::string_view s);

/// The same where the text begins with no ASCII character.
Decoded DecodeBeyondAscii(std::string_view s);

// Nearly all characters end here, and a text has many.
inline Decoded DecodeFirst(std::string_view s) {
    if (s.empty()) {
        return {0, 0};
    }
    const auto lead = static_cast<unsigned char>(s.front());
    return lead < 0x80 ? Decoded{lead, 1} : DecodeBeyondAscii(s);
}

/// One character as UTF-8.
std::string Encode(char32_t code);

/// To and from the machine's 8-bit code page, Windows-1252. A character that the code page lacks becomes "?".
std::string ToCodePage(std::string_view utf8);
std::string FromCodePage(std::string_view bytes);

} // namespace base::text
