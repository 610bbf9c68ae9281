// The user's own defaults of queues, in a file that other programs and the user write as well.
//
// A seed has a queue's name, the options to change (NAME=VALUE NAME=VALUE; without a value they go), and the
// file.
#include <algorithm>
#include <string>
#include <string_view>

#include "Input.h"
#include "Require.h"
#include "platform/qt/CupsChoice.h"
#include "platform/qt/CupsServer.h"
#include "platform/qt/OptionLine.h"

namespace {

using namespace platform::qt;
using std::string;
using std::string_view;

constexpr string_view Letters = "abcdefghijklmnopqrstuvwxyz0123456789-";

bool HasOnly(string_view text, string_view allowed) {
    return text.find_first_not_of(allowed) == string_view::npos;
}

CupsOptions ReadChanges(fuzz::Input words) {
    CupsOptions changes;
    while (!words.Empty()) {
        const string_view word = words.Word();
        const std::size_t equals = std::min(word.find('='), word.size());
        const string name(word.substr(0, equals));
        const string value(word.substr(std::min(equals + 1, word.size())));
        if (!name.empty() && HasOnly(name, Letters) && HasOnly(value, Letters)) {
            changes[name] = value;
        }
    }
    return changes;
}

/// Without quotes, capitals and blanks around "=", which the library reads in ways of its own.
bool IsPlain(const QByteArray& line) {
    return HasOnly(line.toStdString(), string(Letters) + "DK= \n") && !line.contains(" =") &&
           !line.contains("= ");
}

void CheckChange(const QByteArray& text, const string& queue, const CupsOptions& changes) {
    const OptionLine before(text, queue);
    REQUIRE(!before.Exists() || before.Replaced(before.Line()) == text);
    const QByteArray line = WithOptions(before.Line(), queue, changes);
    const QByteArray changed = before.Replaced(line);
    REQUIRE(changed.size() == text.size() - before.Line().size() + line.size());
    REQUIRE(OptionLine(changed, queue).Line() == line);
    if (!IsPlain(line)) {
        return;
    }
    REQUIRE(WithOptions(line, queue, changes) == line);
    const CupsOptions options = OptionsOf(line);
    for (const auto& [name, value] : changes) {
        REQUIRE(value.empty() || ValueOf(options, name) == value);
    }
}

/// Two papers and two bins, as a queue with a PPD and one without call them.
CupsMedia TwoOfEach() {
    CupsMedia media;
    media.Papers.resize(2);
    media.Papers[0].PpdSize = "A4";
    media.Papers[0].PwgMedia = "iso_a4_210x297mm";
    media.Papers[1].PwgMedia = "na_legal_8.5x14in";
    media.Bins.resize(2);
    media.Bins[0].PpdSlot = "Upper";
    media.Bins[1].PwgSource = "tray-3";
    return media;
}

void CheckChoice(CupsOptions options) {
    const CupsMedia media = TwoOfEach();
    const Paper* const paper = PaperIn(media, options);
    const Bin* const bin = BinIn(media, options);
    REQUIRE(paper == nullptr || !ValueOf(options, "PageSize").empty() || !ValueOf(options, "media").empty());
    REQUIRE(bin == nullptr || options.contains("InputSlot") || options.contains("media-source") ||
            options.contains("media"));
    KeepPagesAsDrawn(options, paper != nullptr, bin != nullptr);
    REQUIRE(!options.contains("copies") && !options.contains("page-ranges"));
    REQUIRE(paper == nullptr || PaperIn(media, options) == nullptr);
    REQUIRE(bin == nullptr || BinIn(media, options) == nullptr);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const string queue(input.Line());
    const CupsOptions changes = ReadChanges(fuzz::Input(input.Line()));
    const QByteArray text = QByteArray::fromStdString(string(input.Rest()));
    const string preferred = PreferredIn(text);
    REQUIRE(preferred.find_first_of("/ \t\r\n") == string::npos ||
            preferred.find_first_of("\"'\\") != string::npos);
    if (!queue.empty() && HasOnly(queue, string(Letters) + "K")) {
        CheckChange(text, queue, changes);
    }
    CheckChoice(OptionsOf(OptionLine(text, queue).Line()));
    return 0;
}
