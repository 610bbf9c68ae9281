#include "desktop/cups/CupsChoice.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "desktop/cups/AsciiCase.h"
#include "desktop/cups/CupsServer.h"
#include "desktop/cups/PageOptions.h"

namespace desktop::cups {

namespace {

struct Answer {
    const char* Option;
    const char* Value;
};
/// What every document needs.
constexpr std::array<Answer, 10> Always = {{
    {"copies", "1"},
    {"document-format", CUPS_FORMAT_PDF},
    {"job-sheets", "none,none"},
    {"mirror", "false"},
    {"number-up", "1"},
    {"outputorder", "normal"},
    {"page-border", "none"},
    {"page-set", "all"},
    {"print-scaling", "none"},
    {"sides", "one-sided"},
}};
/// What a document needs where the server has something else for documents that do not say it. Said without
/// need, some printers would refuse it.
struct AnswerWhereNeeded {
    const char* Option;
    const char* Preset; ///< attribute of the queue
    const char* Value;
};
constexpr std::array<AnswerWhereNeeded, 10> WhereNeeded = {{
    {"booklet", "booklet-default", "false"},
    {"fit-to-page", "fit-to-page-default", "false"},
    {"fitplot", "fitplot-default", "false"},
    {"landscape", "landscape-default", "false"},
    {"natural-scaling", "natural-scaling-default", "100"},
    {"orientation-requested", "orientation-requested-default", "3"},
    {"page-label", "page-label-default", ""},
    {"page-ranges", "page-ranges-default", "1-2147483647"},
    {"position", "position-default", "center"},
    {"scaling", "scaling-default", "100"},
}};

// Option names as they are in small letters.
constexpr std::array<std::string_view, 6> OtherPapers = {"pagesize", "page-size", "pageregion",
                                                         "media",    "media-col", "media-size-name"};
constexpr std::array<std::string_view, 7> OtherBins = {
    "inputslot", "hppapersource", "papersources", "manualfeed", "media-source", "media", "media-col"};

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The keywords of the `media` option.
std::vector<std::string> MediaKeywords(const CupsOptions& options) {
    const std::string media = ValueOf(options, "media");
    std::vector<std::string> keywords;
    for (std::size_t at = 0; at < media.size();) {
        const std::size_t end = std::min(media.find(',', at), media.size());
        if (end > at) {
            keywords.push_back(media.substr(at, end - at));
        }
        at = end + 1;
    }
    return keywords;
}

/// The first of the items for which `matches` holds with one of the keywords, taken in their order.
template <class Item, class Matches>
const Item* FirstNamed(const std::vector<Item>& items, const std::vector<std::string>& keywords,
                       Matches matches) {
    for (const std::string& keyword : keywords) {
        const auto found = std::find_if(items.begin(), items.end(),
                                        [&](const Item& item) { return matches(item, keyword); });
        if (found != items.end()) {
            return &*found;
        }
    }
    return nullptr;
}

/// The PPD's option for bins; empty if the queue has none.
std::string BinOption(const CupsMedia& media) {
    const auto found = std::find_if(media.Bins.begin(), media.Bins.end(),
                                    [](const Bin& bin) { return !bin.PpdOption.empty(); });
    return found == media.Bins.end() ? "InputSlot" : found->PpdOption;
}

bool IsPaper(const Paper& paper, const std::string& keyword) {
    const std::optional<SheetSize> size = CustomSize(keyword);
    return paper.PpdSize == keyword || paper.PwgMedia == keyword ||
           (size && IsSameSheet(*size, {paper.Width, paper.Height}));
}

/// Paper and bin for a queue that is known by its attributes alone: the server passes a bin on to the printer
/// only as part of a sheet that is described as a whole.
std::string MediaCol(const Paper& paper, const Bin* bin) {
    std::string members;
    if (!paper.StandIn) {
        members += " media-size={x-dimension=" + std::to_string(HundredthsOf(paper.Width)) +
                   " y-dimension=" + std::to_string(HundredthsOf(paper.Height)) + '}';
    }
    if (bin != nullptr && !bin->PwgSource.empty()) {
        members += " media-source=" + bin->PwgSource;
    }
    if (members.empty()) {
        return members;
    }
    members.front() = '{';
    members += '}';
    return members;
}

template <class Item>
bool TellsItsOwn(const std::vector<Item>& items) {
    return std::any_of(items.begin(), items.end(), [](const Item& item) { return !item.StandIn; });
}

CupsOptions WithoutEmpty(CupsOptions options) {
    std::erase_if(options, [](const auto& option) { return option.first.empty() || option.second.empty(); });
    return options;
}

} // namespace

CupsOptions PaperOptions(const Paper& paper) {
    if (paper.StandIn) {
        return {};
    }
    if (paper.PpdSize.empty() && CustomSize(paper.PwgMedia)) {
        // A size that one has made up has no keyword that every server knows. One that has a PPD to itself
        // would take the nearest size of the PPD for the measures, or its own default; this keyword goes
        // before both.
        return {{"PageSize", PpdKeyword({paper.Width, paper.Height})}};
    }
    return WithoutEmpty({{"PageSize", paper.PpdSize}, {"media", paper.PwgMedia}});
}

CupsOptions BinOptions(const Bin& bin) {
    return bin.StandIn ? CupsOptions()
                       : WithoutEmpty({{bin.PpdOption, bin.PpdSlot}, {"media-source", bin.PwgSource}});
}

const Paper* PaperIn(const CupsMedia& media, const CupsOptions& options) {
    const std::string size = ValueOf(options, "PageSize");
    return FirstNamed(media.Papers, size.empty() ? MediaKeywords(options) : std::vector{size}, IsPaper);
}

const Bin* BinIn(const CupsMedia& media, const CupsOptions& options) {
    std::vector<std::string> keywords = MediaKeywords(options);
    for (const std::string& name : {std::string("media-source"), BinOption(media)}) {
        if (const std::string value = ValueOf(options, name); !value.empty()) {
            keywords = {value};
        }
    }
    return FirstNamed(media.Bins, keywords, [](const Bin& bin, const std::string& keyword) {
        return bin.PpdSlot == keyword || bin.PwgSource == keyword;
    });
}

std::string OwnSizeIn(const CupsOptions& options) {
    std::vector<std::string> keywords = MediaKeywords(options);
    if (const std::string size = ValueOf(options, "PageSize"); !size.empty()) {
        keywords = {size};
    }
    const auto found = std::find_if(keywords.begin(), keywords.end(), [](const std::string& keyword) {
        return CustomSize(keyword).has_value();
    });
    return found == keywords.end() ? std::string() : *found;
}

CupsOptions JobOptions(const CupsMedia& media, const CupsOptions& own,
                       const std::map<std::string, std::string>& known, const Paper& paper, const Bin* bin) {
    const bool hasPaper = !paper.StandIn;
    const bool hasBin = bin != nullptr && TellsItsOwn(media.Bins);
    CupsOptions options = own;
    std::erase_if(options, [&media, hasPaper, hasBin](const auto& option) {
        const std::string name = Lower(option.first);
        const bool isPlain = std::any_of(media.PlainChoices.begin(), media.PlainChoices.end(),
                                         [&name](const auto& each) { return Lower(each.first) == name; });
        return isPlain || ChangesPages(name) || (hasPaper && Contains(OtherPapers, name)) ||
               (hasBin && Contains(OtherBins, name));
    });
    const auto say = [&options](const CupsOptions& more) {
        for (const auto& [name, value] : more) {
            options[name] = value;
        }
    };
    say(PaperOptions(paper));
    if (hasBin) {
        say(BinOptions(*bin));
    }
    if (!media.IsByPpd && (hasPaper || hasBin)) {
        say(WithoutEmpty({{"media-col", MediaCol(paper, hasBin ? bin : nullptr)}}));
    }
    for (const AnswerWhereNeeded& answer : WhereNeeded) {
        const std::string preset = ValueOf(known, answer.Preset);
        if (!preset.empty() && preset != answer.Value) {
            options[answer.Option] = answer.Value;
        }
    }
    for (const Answer& answer : Always) {
        options[answer.Option] = answer.Value;
    }
    say(media.PlainChoices);
    return options;
}

std::vector<const char*> AttributesForJobs() {
    std::vector<const char*> names;
    names.reserve(WhereNeeded.size());
    for (const AnswerWhereNeeded& answer : WhereNeeded) {
        names.push_back(answer.Preset);
    }
    return names;
}

} // namespace desktop::cups
