// The user's own defaults of queues, in a file that other programs and the user write as well.
//
// A seed has a queue's name and the file.
#include <string>

#include "Input.h"
#include "Require.h"
#include "desktop/cups/CupsChoice.h"
#include "desktop/cups/CupsServer.h"
#include "desktop/cups/OptionLine.h"

namespace {

using namespace desktop::cups;
using std::string;

void CheckLine(const string& text, const string& queue) {
    const string line = desktop::cups::LineOf(text, queue);
    REQUIRE(line.find('\n') == string::npos && text.find(line) != string::npos);
    REQUIRE(desktop::cups::LineOf(line, queue) == line);
    for (const auto& [name, value] : desktop::cups::OptionsOf(line)) {
        REQUIRE(!name.empty());
    }
}

/// Two papers and two bins, as a queue with a PPD and one without call them.
desktop::cups::CupsMedia TwoOfEach() {
    desktop::cups::CupsMedia media;
    media.Papers.resize(2);
    media.Papers[0].PpdSize = "A4";
    media.Papers[0].PwgMedia = "iso_a4_210x297mm";
    media.Papers[1].PwgMedia = "na_legal_8.5x14in";
    media.Bins.resize(2);
    media.Bins[0].PpdOption = "InputSlot";
    media.Bins[0].PpdSlot = "Upper";
    media.Bins[1].PwgSource = "tray-3";
    return media;
}

void CheckChoice(const desktop::cups::CupsOptions& options) {
    const desktop::cups::CupsMedia media = TwoOfEach();
    const desktop::cups::Paper* const paper = desktop::cups::PaperIn(media, options);
    const desktop::cups::Bin* const bin = desktop::cups::BinIn(media, options);
    REQUIRE(paper == nullptr || !desktop::cups::ValueOf(options, "PageSize").empty() ||
            !desktop::cups::ValueOf(options, "media").empty());
    REQUIRE(bin == nullptr || options.contains("InputSlot") || options.contains("media-source") ||
            options.contains("media"));
    const desktop::cups::CupsOptions job =
        desktop::cups::JobOptions(media, options, options, media.Papers[0], &media.Bins[0]);
    REQUIRE(job.at("copies") == "1" && job.at("sides") == "one-sided" && job.at("number-up") == "1");
    REQUIRE(desktop::cups::PaperIn(media, job) == &media.Papers[0] &&
            desktop::cups::BinIn(media, job) == &media.Bins[0]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const string queue(input.Line());
    const string text(input.Rest());
    const string preferred = desktop::cups::PreferredIn(text);
    REQUIRE(preferred.find_first_of("/ \t\r\n") == string::npos ||
            preferred.find_first_of("\"'\\") != string::npos);
    CheckLine(text, queue);
    CheckChoice(desktop::cups::OptionsOf(desktop::cups::LineOf(text, queue)));
    return 0;
}
