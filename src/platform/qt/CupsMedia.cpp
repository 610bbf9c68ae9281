#include "platform/qt/CupsMedia.h"

#include "platform/qt/CupsPpd.h"
#include "platform/qt/PaperTable.h"
#include "platform/qt/PossiblePaper.h"

#include <cups/pwg.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string_view>

namespace platform::qt {

namespace {

constexpr double TwipsPerHundredthMillimetre = 1440.0 / 2540.0;

struct BinWording {
    std::string_view Source;
    const char* Name;
};
constexpr std::array<BinWording, 14> BinWordings = {{
    {"auto", "Automatisch"},
    {"main", "Hoofdlade"},
    {"manual", "Handmatige invoer"},
    {"by-pass-tray", "Multifunctionele lade"},
    {"top", "Bovenste lade"},
    {"middle", "Middelste lade"},
    {"bottom", "Onderste lade"},
    {"large-capacity", "Grote lade"},
    {"envelope", "Enveloppeninvoer"},
    {"tray-1", "Lade 1"},
    {"tray-2", "Lade 2"},
    {"tray-3", "Lade 3"},
    {"tray-4", "Lade 4"},
    {"rear", "Achterste lade"},
}};

std::vector<std::string> Keywords(ipp_t* attributes, const char* name) {
    std::vector<std::string> keywords;
    if (ipp_attribute_t* attribute = ippFindAttribute(attributes, name, IPP_TAG_ZERO)) {
        for (int i = 0; i < ippGetCount(attribute); ++i) {
            if (const char* keyword = ippGetString(attribute, i, nullptr)) {
                keywords.emplace_back(keyword);
            }
        }
    }
    return keywords;
}

double MarginOf(ipp_t* collection, const char* name) {
    ipp_attribute_t* margin = ippFindAttribute(collection, name, IPP_TAG_INTEGER);
    return margin == nullptr ? 0 : ippGetInteger(margin, 0) * TwipsPerHundredthMillimetre;
}

std::string WordingOfBin(const std::string& source) {
    const auto found =
        std::find_if(BinWordings.begin(), BinWordings.end(),
                     [&source](const BinWording& wording) { return wording.Source == source; });
    return found == BinWordings.end() ? source : found->Name;
}

/// A number that is not negative and not taken by a code.
template <class Item>
void Number(std::vector<Item>& items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::int16_t code = items[i].Id;
        const auto before = items.begin() + static_cast<std::ptrdiff_t>(i);
        const bool taken =
            std::any_of(items.begin(), before, [code](const Item& item) { return item.Id == code; });
        if (code == 0 || taken) {
            items[i].Id = static_cast<std::int16_t>(FirstPrivateId + static_cast<int>(i));
        }
    }
}

template <class Item, class Key>
void Keep(std::vector<Item>& items, std::map<std::string, std::int16_t>& numbers, std::int16_t& preset,
          Key key) {
    const std::int16_t oldPreset = preset;
    for (Item& item : items) {
        if (item.Id < FirstPrivateId) {
            continue;
        }
        const bool isPreset = item.Id == oldPreset;
        const auto [entry, isNew] = numbers.try_emplace(key(item), item.Id);
        if (isNew) {
            const auto isTaken = [&numbers, entry = entry](std::int16_t id) {
                return std::any_of(numbers.begin(), numbers.end(), [&](const auto& each) {
                    return each.second == id && each.first != entry->first;
                });
            };
            while (isTaken(entry->second) && entry->second < std::numeric_limits<std::int16_t>::max()) {
                ++entry->second;
            }
        }
        item.Id = entry->second;
        if (isPreset) {
            preset = item.Id;
        }
    }
}

} // namespace

void KeepNumbers(CupsMedia& media, MediaNumbers& numbers) {
    Keep(media.Papers, numbers.Papers, media.DefaultPaper,
         [](const Paper& paper) { return paper.PpdSize.empty() ? paper.PwgMedia : paper.PpdSize; });
    Keep(media.Bins, numbers.Bins, media.DefaultBin,
         [](const Bin& bin) { return bin.PpdSlot.empty() ? bin.PwgSource : bin.PpdSlot; });
}

void NumberMedia(CupsMedia& media) {
    // More than any printer has; beyond it the numbers would leave 16 bits.
    constexpr std::size_t Most = 8192;
    media.Papers.resize(std::min(media.Papers.size(), Most));
    media.Bins.resize(std::min(media.Bins.size(), Most));
    Number(media.Papers);
    Number(media.Bins);
}

CupsMedia MediaOfAttributes(ipp_t* attributes) {
    CupsMedia media;
    Paper margins;
    if (ipp_attribute_t* preset =
            ippFindAttribute(attributes, "media-col-default", IPP_TAG_BEGIN_COLLECTION)) {
        ipp_t* collection = ippGetCollection(preset, 0);
        margins.Left = MarginOf(collection, "media-left-margin");
        margins.Top = MarginOf(collection, "media-top-margin");
        margins.Right = MarginOf(collection, "media-right-margin");
        margins.Bottom = MarginOf(collection, "media-bottom-margin");
    }
    for (const std::string& keyword : Keywords(attributes, "media-supported")) {
        const pwg_media_t* size = pwgMediaForPWG(keyword.c_str());
        if (size == nullptr || size->width <= 0 || size->length <= 0 || keyword.starts_with("custom_")) {
            continue; // a type of media, or the bounds of sizes that one can make up
        }
        Paper paper = margins;
        paper.Id = PaperCode(keyword);
        paper.Name = size->ppd != nullptr && *size->ppd != 0 ? size->ppd : keyword;
        paper.PwgMedia = keyword;
        paper.Width = size->width * TwipsPerHundredthMillimetre;
        paper.Height = size->length * TwipsPerHundredthMillimetre;
        media.Papers.push_back(paper);
    }
    for (const std::string& source : Keywords(attributes, "media-source-supported")) {
        Bin bin;
        bin.Id = BinCode(source);
        bin.Name = WordingOfBin(source);
        bin.PwgSource = source;
        media.Bins.push_back(bin);
    }
    KeepPossible(media.Papers);
    NumberMedia(media);
    if (!media.Papers.empty()) {
        const std::vector<std::string> preset = Keywords(attributes, "media-default");
        const auto found =
            std::find_if(media.Papers.begin(), media.Papers.end(), [&preset](const Paper& paper) {
                return !preset.empty() && paper.PwgMedia == preset.front();
            });
        media.DefaultPaper = found == media.Papers.end() ? media.Papers.front().Id : found->Id;
    }
    if (!media.Bins.empty()) {
        media.DefaultBin = media.Bins.front().Id;
    }
    return media;
}

CupsMedia MediaOfQueue(ipp_t* attributes, const std::string& ppdFile) {
    CupsMedia byAttributes = MediaOfAttributes(attributes);
    if (ppdFile.empty()) {
        return byAttributes;
    }
    CupsMedia byPpd = MediaOfPpd(ppdFile);
    // The server derives media-source-supported from the PPD's bins, one by one.
    if (byPpd.Bins.size() == byAttributes.Bins.size()) {
        for (std::size_t i = 0; i < byPpd.Bins.size(); ++i) {
            byPpd.Bins[i].PwgSource = byAttributes.Bins[i].PwgSource;
        }
    }
    return byPpd.Papers.empty() ? byAttributes : byPpd;
}

} // namespace platform::qt
