#include "desktop/regfile/RegFile.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "machine/Registry.h"
#include "machine/RegistryKeys.h"

namespace desktop::regfile {
namespace {

constexpr std::uint32_t TypeExpandable = 2;
constexpr std::uint32_t TypeSeveralTexts = 7;

constexpr std::size_t MaximumDepth = 512; // levels of keys that Windows allows

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool HasControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), IsControl);
}

std::string Quoted(std::string_view text) {
    return '"' + regfile::Escaped(text) + '"';
}

} // namespace

bool IsTextType(std::uint32_t type) {
    return type == machine::RegSz || type == TypeExpandable || type == TypeSeveralTexts;
}

RegFile::RegFile(std::string bytes, std::string_view branch) : bytes_(std::move(bytes)), encoding_(bytes_) {
    Read(branch);
}

bool RegFile::IsOfKnownForm(std::string_view bytes) {
    const regfile::Encoding encoding(bytes);
    const std::size_t units = encoding.Units(bytes);
    if (units == 0) {
        return true;
    }
    constexpr std::size_t most = 4096; // of other text it is known at once
    const std::string beginning = encoding.Narrow(bytes, {0, std::min(units, most)});
    if (beginning.find('\0') != std::string::npos) {
        return false; // characters of two bytes or four, without the mark that tells it
    }
    return beginning.starts_with("REGEDIT4") || beginning.starts_with("Windows Registry Editor") ||
           encoding.NextKeyLine(bytes, 0) < units;
}

bool RegFile::EndsWhole(std::string_view bytes) {
    const regfile::Encoding encoding(bytes);
    const std::size_t units = encoding.Units(bytes);
    if (encoding.Offset(units) != bytes.size()) {
        return false; // in the midst of a character
    }
    const regfile::Span last{encoding.LastLine(bytes), units};
    const std::string text = encoding.Narrow(bytes, last);
    const std::size_t at = regfile::SkipBlanks(text, 0);
    if (at == text.size()) {
        return true;
    }
    if (text[at] == '[') {
        return regfile::ReadHeader(text, at).has_value();
    }
    if (text[at] != '"' && text[at] != '@') {
        return false;
    }
    const std::optional<regfile::Entry> entry = regfile::ReadEntry(text, at);
    if (!entry) {
        return false;
    }
    constexpr std::size_t dwordDigits = 8;
    const std::string_view data =
        std::string_view(text).substr(entry->Data.Begin, entry->Data.End - entry->Data.Begin);
    switch (entry->Notation) {
    case regfile::Notation::Dword:
        return data.substr(data.find(':') + 1).size() >= dwordDigits;
    case regfile::Notation::Hex:
        return false; // more bytes may come
    default:
        return true;
    }
}

void RegFile::Read(std::string_view branch) {
    lineEnd_ = encoding_.HasBareLineEnds(bytes_) ? "\n" : "\r\n";
    const std::size_t units = encoding_.Units(bytes_);
    std::size_t at = encoding_.NextKeyLine(bytes_, 0);
    while (at < units) {
        const std::size_t next = encoding_.NextKeyLine(bytes_, at + 1);
        if (encoding_.MayConcern(bytes_, at, branch)) {
            ReadSection({at, next});
        }
        at = next;
    }
}

/// From the bracket of a key's line to that of the next: a value that goes on over several lines ends before
/// it.
void RegFile::ReadSection(regfile::Span section) {
    const std::string text = encoding_.Narrow(bytes_, section);
    Key* const key = ReadHeader(text, section.Begin);
    if (key == nullptr) {
        return;
    }
    for (std::size_t at = regfile::NextLine(text, 0); at < text.size(); at = regfile::NextLine(text, at)) {
        at = regfile::SkipBlanks(text, at);
        if (at == text.size()) {
            break;
        }
        if (text[at] == '"' || text[at] == '@') {
            ReadEntry(text, section.Begin, at, *key);
        }
    }
}

/// The key that the values below belong to: none below a damaged line or a key taken away. `from` is where
/// the text begins in the file.
RegFile::Key* RegFile::ReadHeader(std::string_view text, std::size_t from) {
    const std::optional<regfile::Header> header = regfile::ReadHeader(text, 0);
    if (!header) {
        return nullptr;
    }
    const std::string path =
        machine::FoldedName(encoding_.Decode(bytes_, regfile::Shifted(header->Path, from)));
    const std::vector<std::string_view> names = machine::KeyNames(path);
    if (names.empty() || names.size() > MaximumDepth) {
        return nullptr;
    }
    Key* key = &root_;
    if (header->Deletes) {
        for (std::size_t i = 0; i + 1 < names.size(); ++i) {
            const auto found = key->Keys.find(names[i]);
            if (found == key->Keys.end()) {
                return nullptr;
            }
            key = found->second.get();
        }
        const auto found = key->Keys.find(names.back());
        if (names.size() > 1 && found != key->Keys.end()) { // a root cannot be taken away
            key->Keys.erase(found);
        }
        return nullptr;
    }
    for (const std::string_view name : names) {
        std::unique_ptr<Key>& child = key->Keys[std::string(name)];
        if (!child) {
            child = std::make_unique<Key>();
        }
        key = child.get();
    }
    key->End = from + regfile::LineEnd(text, 0);
    return key;
}

void RegFile::ReadEntry(std::string_view text, std::size_t from, std::size_t& at, Key& key) const {
    const std::optional<regfile::Entry> entry = regfile::ReadEntry(text, at);
    if (!entry) {
        return;
    }
    const std::string name = machine::FoldedName(
        regfile::Unescaped(encoding_.Decode(bytes_, regfile::Shifted(entry->Name, from))));
    if (entry->Notation == regfile::Notation::Deleted) {
        key.Values.erase(name);
    } else {
        key.Values.insert_or_assign(name,
                                    Value{entry->Notation, entry->Type, regfile::Shifted(entry->Data, from)});
    }
    at = entry->Data.End;
    key.End = from + regfile::LineEnd(text, at);
}

const RegFile::Key* RegFile::FindKey(std::string_view path) const {
    const std::string folded = machine::FoldedName(path);
    const Key* key = &root_;
    for (const std::string_view name : machine::KeyNames(folded)) {
        const auto found = key->Keys.find(name);
        if (found == key->Keys.end()) {
            return nullptr;
        }
        key = found->second.get();
    }
    return key == &root_ ? nullptr : key;
}

bool RegFile::HasKey(std::string_view path) const {
    return FindKey(path) != nullptr;
}

std::optional<RegValue> RegFile::Find(std::string_view path, std::string_view name) const {
    const Key* key = FindKey(path);
    if (key == nullptr) {
        return std::nullopt;
    }
    const auto found = key->Values.find(machine::FoldedName(name));
    if (found == key->Values.end()) {
        return std::nullopt;
    }
    const Value& value = found->second;
    if (value.Notation == regfile::Notation::Quoted) {
        const regfile::Span inside{value.Data.Begin + 1, value.Data.End - 1};
        return RegValue{value.Type, regfile::Unescaped(encoding_.Decode(bytes_, inside)) + '\0'};
    }
    const std::string data = encoding_.Narrow(bytes_, value.Data);
    if (value.Notation == regfile::Notation::Dword) {
        return RegValue{value.Type, regfile::DwordBytes(data)};
    }
    const std::string bytes = regfile::HexBytes(data);
    return RegValue{value.Type, IsTextType(value.Type) ? encoding_.DecodeHex(bytes) : bytes};
}

/// A plain text goes between quotes; what a line of text cannot hold goes out byte by byte.
std::string RegFile::Notation(const RegValue& value) const {
    const std::string_view data = value.Data;
    if (value.Type == machine::RegSz && data.ends_with('\0') &&
        !HasControls(data.substr(0, data.size() - 1))) {
        return Quoted(data.substr(0, data.size() - 1));
    }
    const std::string bytes = IsTextType(value.Type) ? encoding_.EncodeHex(data) : value.Data;
    return regfile::HexNotation(value.Type, bytes, lineEnd_);
}

std::optional<std::string> RegFile::WithValue(std::string_view path, std::string_view name,
                                              const RegValue& value) const {
    const Key* key = FindKey(path);
    if (key == nullptr || HasControls(name) || base::text::Length(name) > regfile::MaximumName) {
        return std::nullopt;
    }
    const auto found = key->Values.find(machine::FoldedName(name));
    if (found != key->Values.end()) {
        return Replaced(found->second.Data, Notation(value));
    }
    const std::string line = (name.empty() ? std::string("@") : Quoted(name)) + '=' + Notation(value);
    if (key->End) {
        return Replaced({*key->End, *key->End}, lineEnd_ + line);
    }
    const std::size_t units = encoding_.Units(bytes_);
    const bool lineIsOpen = encoding_.Narrow(bytes_, {units - 1, units}) != "\n";
    std::string section = (lineIsOpen ? lineEnd_ : "") + lineEnd_ + '[';
    const char* separator = "";
    for (const std::string_view keyName : machine::KeyNames(path)) {
        section.append(separator).append(keyName);
        separator = "\\";
    }
    return Replaced({units, units}, section + ']' + lineEnd_ + line + lineEnd_);
}

std::string RegFile::Replaced(regfile::Span span, std::string_view utf8) const {
    std::string bytes = bytes_.substr(0, encoding_.Offset(span.Begin));
    bytes += encoding_.Encode(utf8);
    return bytes.append(bytes_, encoding_.Offset(span.End));
}

} // namespace desktop::regfile
