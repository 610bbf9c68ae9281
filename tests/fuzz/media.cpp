// What a print server tells of a queue: its attributes, and the PPD file of its driver.
//
// A seed has an attribute to a line, NAME TYPE VALUE,VALUE, up to a line that begins a PPD file.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

#include "Input.h"
#include "Require.h"
#include "desktop/cups/CupsMedia.h"
#include "desktop/cups/CupsServer.h"
#include "desktop/cups/CupsStatus.h"

namespace {

using namespace desktop::cups;
using std::string;
using std::string_view;

/// A file in memory with a name to open it by.
class MemoryFile {
  public:
    explicit MemoryFile(string_view bytes) : descriptor_(memfd_create("ppd", MFD_CLOEXEC)) {
        REQUIRE(descriptor_ >= 0);
        REQUIRE(write(descriptor_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    string Name() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  private:
    int descriptor_;
};

std::vector<string> Split(string_view text, char mark) {
    std::vector<string> parts;
    for (;;) {
        const std::size_t at = text.find(mark);
        parts.emplace_back(text.substr(0, at));
        if (at == string_view::npos) {
            return parts;
        }
        text.remove_prefix(at + 1);
    }
}

int Number(string_view text) {
    return fuzz::Input(text).Take<int>();
}

struct TextType {
    string_view Name;
    ipp_tag_t Tag;
};
constexpr std::array<TextType, 7> TextTypes = {{
    {"keyword", IPP_TAG_KEYWORD},
    {"name", IPP_TAG_NAME},
    {"text", IPP_TAG_TEXT},
    {"uri", IPP_TAG_URI},
    {"charset", IPP_TAG_CHARSET},
    {"mime", IPP_TAG_MIMETYPE},
    {"language", IPP_TAG_LANGUAGE},
}};

void AddNumbers(ipp_t* answer, ipp_tag_t type, const char* name, const std::vector<string>& values) {
    std::vector<int> numbers;
    std::transform(values.begin(), values.end(), std::back_inserter(numbers),
                   [](const string& value) { return Number(value); });
    ippAddIntegers(answer, IPP_TAG_PRINTER, type, name, static_cast<int>(numbers.size()), numbers.data());
}

/// MEMBER=NUMBER,MEMBER=NUMBER
void AddCollection(ipp_t* answer, const char* name, const std::vector<string>& values) {
    const std::unique_ptr<ipp_t, desktop::cups::FreeIpp> collection(ippNew());
    for (const string& value : values) {
        const std::size_t equals = value.find('=');
        const string member = value.substr(0, equals);
        const string text = equals == string::npos ? string() : value.substr(equals + 1);
        if (text.empty()) {
            ippAddOutOfBand(collection.get(), IPP_TAG_ZERO, IPP_TAG_NOVALUE, member.c_str());
        } else {
            ippAddInteger(collection.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, member.c_str(), Number(text));
        }
    }
    ippAddCollection(answer, IPP_TAG_PRINTER, name, collection.get());
}

void AddAttribute(ipp_t* answer, fuzz::Input line) {
    const string name(line.Word());
    const string_view type = line.Word();
    const std::vector<string> values = Split(line.Rest(), ',');
    if (name.empty()) {
        ippAddSeparator(answer);
        return;
    }
    if (type == "integer" || type == "enum") {
        AddNumbers(answer, type == "enum" ? IPP_TAG_ENUM : IPP_TAG_INTEGER, name.c_str(), values);
    } else if (type == "boolean") {
        ippAddBoolean(answer, IPP_TAG_PRINTER, name.c_str(), static_cast<char>(values.front() == "true"));
    } else if (type == "collection") {
        AddCollection(answer, name.c_str(), values);
    } else if (type == "none") {
        ippAddOutOfBand(answer, IPP_TAG_PRINTER, IPP_TAG_NOVALUE, name.c_str());
    } else if (type == "range") {
        ippAddRange(answer, IPP_TAG_PRINTER, name.c_str(), Number(values.front()), Number(values.back()));
    } else if (type == "resolution") {
        ippAddResolution(answer, IPP_TAG_PRINTER, name.c_str(), IPP_RES_PER_INCH, Number(values.front()),
                         Number(values.back()));
    } else if (type == "octets") {
        const string bytes = fuzz::WithoutEscapes(line.Rest());
        ippAddOctetString(answer, IPP_TAG_PRINTER, name.c_str(), bytes.data(),
                          static_cast<int>(bytes.size()));
    }
    for (const TextType& known : TextTypes) {
        if (known.Name == type) {
            std::vector<const char*> texts;
            std::transform(values.begin(), values.end(), std::back_inserter(texts),
                           [](const string& value) { return value.c_str(); });
            ippAddStrings(answer, IPP_TAG_PRINTER, known.Tag, name.c_str(), static_cast<int>(texts.size()),
                          nullptr, texts.data());
        }
    }
}

template <class Item>
void CheckNumbers(const std::vector<Item>& items, std::int16_t preset) {
    for (auto item = items.begin(); item != items.end(); ++item) {
        REQUIRE(item->Id > 0);
        REQUIRE(std::none_of(items.begin(), item, [&](const Item& other) { return other.Id == item->Id; }));
    }
    REQUIRE(preset == 0 ||
            std::any_of(items.begin(), items.end(), [&](const Item& item) { return item.Id == preset; }));
}

void CheckMedia(desktop::cups::CupsMedia media) {
    CheckNumbers(media.Papers, media.DefaultPaper);
    CheckNumbers(media.Bins, media.DefaultBin);
    for (const desktop::cups::Paper& paper : media.Papers) {
        // A page that a PDF can have, with something to print on.
        constexpr double longest = 200 * 1440;
        REQUIRE(paper.Width > 0 && paper.Width <= longest);
        REQUIRE(paper.Height > 0 && paper.Height <= longest);
        REQUIRE(std::abs(paper.Left) < longest && paper.Left + paper.Right < paper.Width);
        REQUIRE(std::abs(paper.Top) < longest && paper.Top + paper.Bottom < paper.Height);
    }
    // A list in another order gives every paper the number that it has had.
    desktop::cups::MediaNumbers numbers;
    desktop::cups::KeepNumbers(media, numbers);
    desktop::cups::CupsMedia turned = media;
    std::reverse(turned.Papers.begin(), turned.Papers.end());
    std::reverse(turned.Bins.begin(), turned.Bins.end());
    desktop::cups::KeepNumbers(turned, numbers);
    REQUIRE(turned.DefaultPaper == media.DefaultPaper || media.DefaultPaper == 0);
}

void CheckState(ipp_t* answer) {
    ipp_attribute_t* at = ippFirstAttribute(answer);
    const desktop::cups::CupsAttributes attributes = desktop::cups::ReadAttributes(answer, at);
    desktop::cups::StatusBits(desktop::cups::ValueOf(attributes, "printer-state"),
                              desktop::cups::ValueOf(attributes, "printer-state-reasons"),
                              desktop::cups::ValueOf(attributes, "printer-is-accepting-jobs"));
    desktop::cups::ResourceOf(desktop::cups::ValueOf(attributes, "printer-uri-supported"));
}

} // namespace

// The client library forgets a few bytes of a PPD file that breaks off.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the sanitizer's names
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libcups.so";
}
extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0";
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::unique_ptr<ipp_t, desktop::cups::FreeIpp> answer(ippNew());
    fuzz::Input input(data, size);
    while (!input.Empty() && !input.Rest().starts_with("*PPD")) {
        AddAttribute(answer.get(), fuzz::Input(input.Line()));
    }
    CheckState(answer.get());
    CheckMedia(desktop::cups::MediaOfQueue(answer.get(), ""));
    if (!input.Empty()) {
        const MemoryFile ppd(input.Rest());
        CheckMedia(desktop::cups::MediaOfQueue(answer.get(), ppd.Name()));
    }
    return 0;
}
