#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/regfile/RegFileEncoding.h"

namespace desktop::regfile {

/// A value of the registry: its type and its data. The data of a text type is UTF-8 with its closing NUL as
/// far as the file gives one; that of any other type is bytes.
struct RegValue {
    std::uint32_t Type = 0;
    std::string Data;
};

/// True for the types whose data is text: one text, one with variables to expand, or several.
bool IsTextType(std::uint32_t type);

/// A settings file as Windows exports it from the registry ("Windows Registry Editor Version 5.00" or
/// "REGEDIT4"), read as Windows reads it: later entries override earlier ones, [-key] and "name"=- take away,
/// names make no difference between capitals and small letters. Any bytes can be read: a damaged line counts
/// for nothing, and after a damaged key line its values do. The file is kept as its bytes, so a write changes
/// those of the value concerned and no other.
class RegFile {
  public:
    /// With a `branch`, such as "HKEY_CURRENT_USER\\Software", the keys of that branch alone are read, and
    /// those above it: a large file then costs no more than a look at each of its keys. In capitals and small
    /// letters of ASCII, without a backslash at its ends.
    explicit RegFile(std::string bytes = {}, std::string_view branch = {});

    /// Can a file with these bytes be read at all: is its text in an encoding that is known, and has it the
    /// header of an exported file, or a line of a key? An empty file has nothing that could not be read.
    static bool IsOfKnownForm(std::string_view bytes);

    /// Does a file with these bytes end where a line ends, or at least with a key, or a value between quotes,
    /// that is complete?
    static bool EndsWhole(std::string_view bytes);

    const std::string& Bytes() const { return bytes_; }

    /// Paths start with the root's full name: "HKEY_CURRENT_USER\Software". A key exists if the file names it
    /// or one below it.
    bool HasKey(std::string_view path) const;

    std::optional<RegValue> Find(std::string_view path, std::string_view name) const;

    /// The file's bytes with a value written into an existing key: in the place of the value in force, else
    /// behind the key's last one. Nothing if the key does not exist or a text file cannot hold the name.
    std::optional<std::string> WithValue(std::string_view path, std::string_view name,
                                         const RegValue& value) const;

  private:
    struct Value {
        regfile::Notation Notation;
        std::uint32_t Type;
        regfile::Span Data;
    };
    struct Key {
        std::map<std::string, std::unique_ptr<Key>, std::less<>> Keys;
        std::map<std::string, Value, std::less<>> Values;
        std::optional<std::size_t> End; // where a new value goes; nothing for a key that no line names
    };

    void Read(std::string_view branch);
    void ReadSection(regfile::Span section);
    Key* ReadHeader(std::string_view text, std::size_t from);
    void ReadEntry(std::string_view text, std::size_t from, std::size_t& at, Key& key) const;
    const Key* FindKey(std::string_view path) const;
    std::string Notation(const RegValue& value) const;
    std::string Replaced(regfile::Span span, std::string_view utf8) const;

    std::string bytes_;
    regfile::Encoding encoding_;
    std::string lineEnd_;
    Key root_;
};

} // namespace desktop::regfile
