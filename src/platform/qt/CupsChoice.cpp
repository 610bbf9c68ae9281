#include "platform/qt/CupsChoice.h"

#include "platform/qt/CupsServer.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace platform::qt {

namespace {

// In small letters. The names are those of the server, of its filters and of PPD files.
constexpr std::array<std::string_view, 26> PageOptions = {
    "booklet",
    "copies",
    "fit-to-page",
    "fitplot",
    "imposition-template",
    "landscape",
    "media-size",
    "mirror",
    "natural-scaling",
    "number-up",
    "number-up-layout",
    "orientation-requested",
    "page-border",
    "page-bottom",
    "page-left",
    "page-ranges",
    "page-right",
    "page-set",
    "page-top",
    "position",
    "print-scaling",
    "scaling",
    "x-image-position",
    "y-image-position",
    "image-orientation",
    "job-pages-per-set",
};
constexpr std::array<std::string_view, 5> OtherPapers = {"pagesize", "pageregion", "media", "media-col",
                                                         "media-size-name"};
constexpr std::array<std::string_view, 5> OtherBins = {"inputslot", "manualfeed", "media-source", "media",
                                                       "media-col"};

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The first of the items for which `matches` holds with one of the keywords of the `media` option.
template <class Item, class Matches>
const Item* NamedByMedia(const std::vector<Item>& items, const CupsOptions& options, Matches matches) {
    const std::string media = ValueOf(options, "media");
    for (std::size_t at = 0; at < media.size();) {
        const std::size_t end = std::min(media.find(',', at), media.size());
        const std::string keyword = media.substr(at, end - at);
        const auto found = std::find_if(items.begin(), items.end(), [&](const Item& item) {
            return !keyword.empty() && matches(item, keyword);
        });
        if (found != items.end()) {
            return &*found;
        }
        at = end + 1;
    }
    return nullptr;
}

/// The item with this value of a member; nullptr if the value is empty or no item has it.
template <class Item>
const Item* Named(const std::vector<Item>& items, std::string Item::*member, const std::string& value) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const Item& item) {
        return !value.empty() && item.*member == value;
    });
    return found == items.end() ? nullptr : &*found;
}

} // namespace

CupsOptions PaperOptions(const Paper& paper) {
    return paper.StandIn ? CupsOptions()
                         : CupsOptions{{"PageSize", paper.PpdSize}, {"media", paper.PwgMedia}};
}

CupsOptions BinOptions(const Bin& bin) {
    return bin.StandIn ? CupsOptions()
                       : CupsOptions{{"InputSlot", bin.PpdSlot}, {"media-source", bin.PwgSource}};
}

const Paper* PaperIn(const CupsMedia& media, const CupsOptions& options) {
    if (const std::string size = ValueOf(options, "PageSize"); !size.empty()) {
        return Named(media.Papers, &Paper::PpdSize, size);
    }
    return NamedByMedia(media.Papers, options, [](const Paper& paper, const std::string& keyword) {
        return paper.PwgMedia == keyword || paper.PpdSize == keyword;
    });
}

const Bin* BinIn(const CupsMedia& media, const CupsOptions& options) {
    if (const std::string slot = ValueOf(options, "InputSlot"); !slot.empty()) {
        return Named(media.Bins, &Bin::PpdSlot, slot);
    }
    if (const std::string source = ValueOf(options, "media-source"); !source.empty()) {
        return Named(media.Bins, &Bin::PwgSource, source);
    }
    return NamedByMedia(media.Bins, options, [](const Bin& bin, const std::string& keyword) {
        return bin.PwgSource == keyword || bin.PpdSlot == keyword;
    });
}

void KeepPagesAsDrawn(CupsOptions& options, bool paper, bool bin) {
    std::erase_if(options, [paper, bin](const auto& option) {
        const std::string name = Lower(option.first);
        return Contains(PageOptions, name) || (paper && Contains(OtherPapers, name)) ||
               (bin && Contains(OtherBins, name));
    });
}

} // namespace platform::qt
