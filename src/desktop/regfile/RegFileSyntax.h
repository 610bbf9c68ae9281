#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The grammar of exported registry files, line by line. All marks of the grammar are ASCII, so these
/// routines work on a view that has one byte for each character unit of the file and any byte from 0x80 on
/// for what is not ASCII. Positions count from the start of that view. Every routine takes time in proportion
/// to what it reads.
namespace desktop::regfile {

/// Longest name of a value that Windows allows, in characters.
inline constexpr std::size_t MaximumName = 16383;

struct Span {
    std::size_t Begin = 0;
    std::size_t End = 0;
};

/// The same stretch counted from another start, that lies `by` before the present one.
inline Span Shifted(Span span, std::size_t by) {
    return {span.Begin + by, span.End + by};
}

/// How the data of a value is written.
enum class Notation {
    Quoted,  // "text"
    Dword,   // dword:0000001f
    Hex,     // hex(1):41,00,00,00 and hex:01,02 on one line or several
    Deleted, // - : the value is taken away
};

/// "name"=data, or @=data for a key's default value, whose name is empty.
struct Entry {
    Span Name; // between the quotes, escapes as written
    regfile::Notation Notation = regfile::Notation::Quoted;
    std::uint32_t Type = 0;
    Span Data; // all that stands for the data, quotes and prefix included
};

/// [path], or [-path] where a key is taken away with all below it.
struct Header {
    Span Path;
    bool Deletes = false;
};

/// Bytes of a hex list and the position behind the list.
struct HexList {
    std::string Bytes;
    std::size_t End = 0;
};

/// Position of the line's end: its CR LF or LF, or the end of the text.
std::size_t LineEnd(std::string_view text, std::size_t at);

/// Position behind the line's end.
std::size_t NextLine(std::string_view text, std::size_t at);

std::size_t SkipBlanks(std::string_view text, std::size_t at);

/// The line at `at`, a position behind leading blanks; nothing if the line is damaged.
std::optional<Header> ReadHeader(std::string_view text, std::size_t at);
std::optional<Entry> ReadEntry(std::string_view text, std::size_t at);

/// The data of an entry, given from its prefix on ("dword:", "hex:", "hex(2):"). The entry has been read
/// before.
std::string DwordBytes(std::string_view data);
std::string HexBytes(std::string_view data);

/// A text between quotes: the backslashes in front of backslashes and quotes taken away or put there.
std::string Unescaped(std::string_view text);
std::string Escaped(std::string_view text);

/// Bytes as a list in the way Windows writes it, continued on further lines.
std::string HexNotation(std::uint32_t type, std::string_view bytes, std::string_view lineEnd);

} // namespace desktop::regfile
