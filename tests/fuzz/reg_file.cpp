// Settings files of any bytes: read without harm, kept byte for byte, and what is written is what is read.
//
// A seed names in its first lines the encoding (utf16, or anything else for the bytes as they stand), a key,
// a value's name and its new text; the file follows.
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Input.h"
#include "Require.h"
#include "base/Text.h"
#include "desktop/regfile/RegFile.h"
#include "desktop/regfile/RegFileEncoding.h"
#include "machine/RegistryKeys.h"

namespace {

namespace regfile = desktop::regfile;
namespace text = base::text;
using desktop::regfile::RegFile;
using desktop::regfile::RegValue;
using std::string;
using std::string_view;

constexpr std::uint32_t TypeText = 1;
constexpr std::uint32_t TypeBytes = 3;

/// Valid UTF-8 of characters that every encoding of a file has, as the registry's calls give it.
string OfCodePage(string_view t) {
    return text::FromCodePage(text::ToCodePage(text::FromCodePage(t)));
}

struct Place {
    string Key;
    string Name;
};

/// Keys and names as the file itself spells them, damaged ones as well.
std::vector<Place> PlacesIn(string_view file) {
    constexpr std::size_t most = 40;
    std::vector<Place> places;
    string key;
    for (fuzz::Input lines(file); !lines.Empty() && places.size() < most;) {
        const string_view line = lines.Line();
        if (line.starts_with('[')) {
            key = line.substr(1, line.find(']') - 1);
            places.push_back({key, ""});
        } else if (line.starts_with('"')) {
            places.push_back({key, string(line.substr(1, line.find('"', 1) - 1))});
        }
    }
    return places;
}

bool Same(const std::optional<RegValue>& a, const std::optional<RegValue>& b) {
    return a.has_value() == b.has_value() && (!a || (a->Type == b->Type && a->Data == b->Data));
}

/// Bytes that two texts have in common at their beginning.
std::size_t CommonHead(string_view a, string_view b) {
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

/// True if the new bytes are the old ones with something put in at one place.
bool IsInsertion(const string& before, const string& after) {
    const std::size_t head = CommonHead(before, after);
    return after.size() >= before.size() && after.ends_with(string_view(before).substr(head));
}

void CheckWrite(const RegFile& file, const Place& where, const RegValue& value,
                const std::vector<Place>& others) {
    const std::optional<string> bytes = file.WithValue(where.Key, where.Name, value);
    if (!bytes) {
        return;
    }
    const std::optional<RegValue> before = file.Find(where.Key, where.Name);
    REQUIRE(before || IsInsertion(file.Bytes(), *bytes));
    const RegFile written(*bytes);
    REQUIRE(Same(written.Find(where.Key, where.Name), value));
    REQUIRE(written.WithValue(where.Key, where.Name, value) == *bytes);
    for (const Place& other : others) {
        REQUIRE(written.HasKey(other.Key) == file.HasKey(other.Key));
        if (machine::KeyNames(machine::FoldedName(other.Key)) !=
                machine::KeyNames(machine::FoldedName(where.Key)) ||
            machine::FoldedName(other.Name) != machine::FoldedName(where.Name)) {
            REQUIRE(Same(written.Find(other.Key, other.Name), file.Find(other.Key, other.Name)));
        }
    }
    // A second text in its place leaves everything around it.
    const std::optional<string> again =
        written.WithValue(where.Key, where.Name, {TypeText, string("x\0", 2)});
    REQUIRE(again && RegFile(*again).WithValue(where.Key, where.Name, value) == *bytes);
}

/// Can this text stand for a branch?
bool IsBranch(string_view key) {
    return !key.empty() && key.front() != '\\' && key.back() != '\\' && key.find("\\\\") == key.npos &&
           std::all_of(key.begin(), key.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// What is read of one branch is what the whole file has there.
void CheckBranch(const RegFile& file, const Place& where) {
    if (IsBranch(where.Key)) {
        const RegFile branch(file.Bytes(), where.Key);
        REQUIRE(branch.HasKey(where.Key) == file.HasKey(where.Key));
        REQUIRE(Same(branch.Find(where.Key, where.Name), file.Find(where.Key, where.Name)));
        REQUIRE(branch.WithValue(where.Key, where.Name, {TypeBytes, "x"}) ==
                file.WithValue(where.Key, where.Name, {TypeBytes, "x"}));
    }
}

void CheckEncoding(string_view t) {
    const string utf8 = OfCodePage(t);
    REQUIRE(regfile::FromUtf16(regfile::ToUtf16(utf8)) == utf8);
    REQUIRE(regfile::Unescaped(regfile::Escaped(t)) == t);
    const string read = regfile::FromUtf16(t);
    REQUIRE(regfile::FromUtf16(regfile::ToUtf16(read)) == read);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const bool isUtf16 = input.Line() == "utf16";
    const Place where{string(input.Line()), OfCodePage(input.Line())};
    const string value = OfCodePage(fuzz::WithoutEscapes(input.Line()));
    const string bytes = isUtf16 ? "\xFF\xFE" + regfile::ToUtf16(input.Rest()) : string(input.Rest());

    const RegFile file(bytes);
    REQUIRE(file.Bytes() == bytes);
    const std::vector<Place> places = PlacesIn(input.Rest());
    CheckWrite(file, where, {TypeText, value + '\0'}, places);
    CheckWrite(file, where, {TypeBytes, value}, places);
    CheckBranch(file, where);
    RegFile::EndsWhole(bytes);
    for (const Place& place : places) {
        CheckBranch(file, place);
        CheckWrite(file, {place.Key, where.Name}, {TypeText, value + '\0'}, places);
        CheckWrite(file, {place.Key, OfCodePage(place.Name)}, {TypeText, value + '\0'}, places);
    }
    CheckEncoding(input.Rest());
    return 0;
}
