#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "desktop/regfile/RegFileSyntax.h"

namespace desktop::regfile {

/// Text as UTF-16LE bytes and back. A half of a surrogate pair becomes U+FFFD, an odd last byte is dropped.
std::string ToUtf16(std::string_view utf8);
std::string FromUtf16(std::string_view bytes);

/// How a file of bytes holds its text, told from its byte order mark and its first line. Spans count
/// character units behind the byte order mark.
class Encoding {
  public:
    /// Files of version 5 are UTF-16LE with its mark, or UTF-8 with or without one; "REGEDIT4" in the first
    /// line tells the machine's code page. A file without a header counts as version 5.
    explicit Encoding(std::string_view file);

    /// Number of whole units of the file.
    std::size_t Units(std::string_view file) const { return (file.size() - start_) / width_; }

    /// Position in the file of a unit.
    std::size_t Offset(std::size_t unit) const { return start_ + unit * width_; }

    // What is found in the file as it lies there, at the speed of its bytes.

    /// The bracket that begins the first line of a key at `from` or behind it; the file's end if there is
    /// none.
    std::size_t NextKeyLine(std::string_view file, std::size_t from) const;
    /// Where the last line begins, which may be empty.
    std::size_t LastLine(std::string_view file) const;
    /// Does the first line end without a carriage return?
    bool HasBareLineEnds(std::string_view file) const;
    /// False if the key whose line begins at `bracket` lies neither in this branch nor above it.
    bool MayConcern(std::string_view file, std::size_t bracket, std::string_view branch) const;

    /// The view that the grammar works on: one byte for each unit of the span.
    std::string Narrow(std::string_view file, Span span) const;

    /// The text of the span. In UTF-8 a byte that is not valid is read in the code page, as older programs
    /// wrote it.
    std::string Decode(std::string_view file, Span span) const;
    std::string Encode(std::string_view utf8) const;

    /// The bytes of a text inside a hexadecimal list: UTF-16LE in version 5, the code page before it.
    std::string DecodeHex(std::string_view bytes) const;
    std::string EncodeHex(std::string_view utf8) const;

  private:
    enum class Characters { Utf16, Utf8, CodePage };

    std::string_view Bytes(std::string_view file, Span span) const;
    char UnitAt(std::string_view file, std::size_t unit) const;
    std::size_t Find(std::string_view file, char wanted, std::size_t from) const;
    bool BeginsLine(std::string_view file, std::size_t unit) const;

    Characters characters_ = Characters::Utf8;
    bool versionFour_ = false;
    std::size_t start_ = 0;
    std::size_t width_ = 1;
};

} // namespace desktop::regfile
