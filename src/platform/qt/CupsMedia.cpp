#include "platform/qt/CupsMedia.h"

#include "platform/qt/CupsPpd.h"
#include "platform/qt/PaperTable.h"
#include "platform/qt/PossiblePaper.h"

#include <cups/pwg.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <set>
#include <string_view>
#include <utility>

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

/// The number of the bin that the queue takes where nobody chooses; 0 if it does not tell.
std::int16_t PresetBin(ipp_t* attributes, const std::vector<Bin>& bins) {
    std::string source = "auto"; // chooses by itself, if there is such a bin
    if (ipp_attribute_t* preset =
            ippFindAttribute(attributes, "media-col-default", IPP_TAG_BEGIN_COLLECTION)) {
        const std::vector<std::string> told = Keywords(ippGetCollection(preset, 0), "media-source");
        source = told.empty() ? source : told.front();
    }
    const auto found =
        std::find_if(bins.begin(), bins.end(), [&source](const Bin& bin) { return bin.PwgSource == source; });
    return found == bins.end() ? std::int16_t{0} : found->Id;
}

/// The sheet of a queue that tells no papers, by what it says of its default; A4 if it says nothing.
Paper SheetUntold(ipp_t* attributes) {
    const std::vector<std::string> preset = Keywords(attributes, "media-default");
    const pwg_media_t* size = preset.empty() ? nullptr : pwgMediaForPWG(preset.front().c_str());
    if (size == nullptr && !preset.empty()) {
        size = pwgMediaForPPD(preset.front().c_str());
    }
    if (size == nullptr || !IsPossibleSide(size->width * TwipsPerHundredthMillimetre) ||
        !IsPossibleSide(size->length * TwipsPerHundredthMillimetre)) {
        size = pwgMediaForPWG("iso_a4_210x297mm");
    }
    Paper paper;
    paper.Id = PaperCode(size->pwg);
    paper.Name = size->ppd != nullptr && *size->ppd != 0 ? size->ppd : size->pwg;
    paper.Width = size->width * TwipsPerHundredthMillimetre;
    paper.Height = size->length * TwipsPerHundredthMillimetre;
    paper.StandIn = true;
    return paper;
}

/// A raw queue tells no papers, and a printer with one tray often no bins. There is one of each all the same.
void AddStandIns(CupsMedia& media, ipp_t* attributes) {
    if (media.Papers.empty()) {
        media.Papers.push_back(SheetUntold(attributes));
        NumberMedia(media);
        media.DefaultPaper = media.Papers.front().Id;
    }
    if (media.Bins.empty()) {
        Bin bin;
        bin.Id = BinAutomatic;
        bin.Name = "Automatisch";
        bin.StandIn = true;
        media.Bins.push_back(bin);
        media.DefaultBin = bin.Id;
    }
}

std::string WordingOfBin(const std::string& source) {
    const auto found =
        std::find_if(BinWordings.begin(), BinWordings.end(),
                     [&source](const BinWording& wording) { return wording.Source == source; });
    return found == BinWordings.end() ? source : found->Name;
}

template <class Item>
void GiveNumbers(std::vector<Item>& items) {
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
void GiveNumbersOfBefore(std::vector<Item>& items, std::map<std::string, std::int16_t>& numbers,
                         std::int16_t& preset, Key key) {
    const std::int16_t oldPreset = preset;
    std::set<std::int16_t> taken;
    for (const auto& [name, id] : numbers) {
        taken.insert(id);
    }
    for (Item& item : items) {
        if (item.Id < FirstPrivateId) {
            continue;
        }
        const bool isPreset = item.Id == oldPreset;
        const auto [entry, isNew] = numbers.try_emplace(key(item), item.Id);
        if (isNew) {
            while (taken.contains(entry->second) &&
                   entry->second < std::numeric_limits<std::int16_t>::max()) {
                ++entry->second;
            }
            taken.insert(entry->second);
        }
        item.Id = entry->second;
        if (isPreset) {
            preset = item.Id;
        }
    }
}

} // namespace

void KeepNumbers(CupsMedia& media, MediaNumbers& numbers) {
    GiveNumbersOfBefore(media.Papers, numbers.Papers, media.DefaultPaper, [](const Paper& paper) {
        return paper.PpdSize.empty() ? paper.PwgMedia : paper.PpdSize;
    });
    GiveNumbersOfBefore(media.Bins, numbers.Bins, media.DefaultBin,
                        [](const Bin& bin) { return bin.PpdSlot.empty() ? bin.PwgSource : bin.PpdSlot; });
}

void NumberMedia(CupsMedia& media) {
    // More than any printer has; beyond it the numbers would leave 16 bits.
    constexpr std::size_t Most = 8192;
    media.Papers.resize(std::min(media.Papers.size(), Most));
    media.Bins.resize(std::min(media.Bins.size(), Most));
    GiveNumbers(media.Papers);
    GiveNumbers(media.Bins);
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
    media.DefaultBin = PresetBin(attributes, media.Bins);
    return media;
}

CupsMedia MediaOfQueue(ipp_t* attributes, const std::string& ppdFile) {
    CupsMedia media = MediaOfAttributes(attributes);
    if (CupsMedia byPpd = ppdFile.empty() ? CupsMedia() : MediaOfPpd(ppdFile); !byPpd.Papers.empty()) {
        // The server derives media-source-supported from the PPD's bins, one by one.
        if (byPpd.Bins.size() == media.Bins.size()) {
            for (std::size_t i = 0; i < byPpd.Bins.size(); ++i) {
                byPpd.Bins[i].PwgSource = media.Bins[i].PwgSource;
            }
        }
        media = std::move(byPpd);
    }
    AddStandIns(media, attributes);
    return media;
}

} // namespace platform::qt
