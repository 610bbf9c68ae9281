#include "desktop/cups/CupsMedia.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <set>
#include <utility>

#include <cups/cups.h>
#include <cups/pwg.h>

#include "desktop/cups/CupsPpd.h"
#include "desktop/cups/IppMedia.h"
#include "desktop/cups/MediaWording.h"
#include "desktop/cups/PaperTable.h"
#include "desktop/cups/PossiblePaper.h"

namespace desktop::cups {

namespace {

/// The paper of the keyword that the queue tells; where it tells none, or one that it does not have, A4.
std::int16_t PresetPaper(const CupsMedia& media) {
    const auto having = [&media](auto matches) {
        const auto found = std::find_if(media.Papers.begin(), media.Papers.end(), matches);
        return found == media.Papers.end() ? nullptr : &*found;
    };
    const std::string& preset = media.PresetKeyword;
    const Paper* paper = having([&preset](const Paper& each) {
        return !preset.empty() && (each.PpdSize == preset || each.PwgMedia == preset);
    });
    if (const std::optional<SheetSize> size = CustomSize(preset); paper == nullptr && size) {
        paper = having([&size](const Paper& each) { return IsSameSheet(*size, {each.Width, each.Height}); });
    }
    if (paper == nullptr) {
        paper = having([](const Paper& each) { return each.Id == PaperA4; });
    }
    return paper == nullptr ? media.Papers.front().Id : paper->Id;
}

/// The sheet of a queue that tells no papers, by what it says of its default; A4 if it says nothing.
Paper SheetUntold(const std::string& preset) {
    const pwg_media_t* size = preset.empty() ? nullptr : pwgMediaForPWG(preset.c_str());
    if (size == nullptr && !preset.empty()) {
        size = pwgMediaForPPD(preset.c_str());
    }
    if (size == nullptr || !IsPossibleSide(TwipsOfHundredths(size->width)) ||
        !IsPossibleSide(TwipsOfHundredths(size->length))) {
        size = pwgMediaForPWG("iso_a4_210x297mm");
    }
    Paper paper;
    paper.Id = PaperCode(size->pwg);
    paper.Width = TwipsOfHundredths(size->width);
    paper.Height = TwipsOfHundredths(size->length);
    paper.Name = WordingOfPaper(size->pwg, {paper.Width, paper.Height});
    paper.StandIn = true;
    return paper;
}

Bin StandInBin(std::int16_t id, const char* name) {
    Bin bin;
    bin.Id = id;
    bin.Name = name;
    bin.StandIn = true;
    return bin;
}

/// A raw queue tells no papers, and a printer with one tray often no bins. There is one of each all the same;
/// and where nobody knows which bin the printer takes by itself, that can be left to it.
void AddStandIns(CupsMedia& media) {
    if (media.Papers.empty()) {
        media.Papers.push_back(SheetUntold(media.PresetKeyword));
        NumberMedia(media);
        media.DefaultPaper = media.Papers.front().Id;
    }
    if (media.Bins.empty()) {
        media.Bins.push_back(StandInBin(BinAutomatic, "Automatisch"));
        media.DefaultBin = BinAutomatic;
    } else if (media.DefaultBin == 0) {
        media.Bins.insert(media.Bins.begin(), StandInBin(BinOfPrinter, "Standaardlade"));
        media.DefaultBin = BinOfPrinter;
    }
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
    constexpr std::size_t most = 8192;
    media.Papers.resize(std::min(media.Papers.size(), most));
    media.Bins.resize(std::min(media.Bins.size(), most));
    GiveNumbers(media.Papers);
    GiveNumbers(media.Bins);
}

void OfferSheet(CupsMedia& media, const SheetSize& size, const std::string& name) {
    const bool isTaken =
        std::any_of(media.CustomSizes.begin(), media.CustomSizes.end(), [&size](const SizeRange& range) {
            return size.Width >= range.Least.Width && size.Width <= range.Most.Width &&
                   size.Height >= range.Least.Height && size.Height <= range.Most.Height;
        });
    const bool isThere = std::any_of(media.Papers.begin(), media.Papers.end(), [&size](const Paper& paper) {
        return IsSameSheet(size, {paper.Width, paper.Height});
    });
    if (!isTaken || isThere) {
        return;
    }
    Paper paper = media.CustomMargins;
    paper.Name = name;
    paper.PpdSize = media.IsByPpd ? PpdKeyword(size) : std::string();
    paper.PwgMedia = media.IsByPpd ? paper.PpdSize : PwgKeyword(size);
    paper.Width = size.Width;
    paper.Height = size.Height;
    media.Papers.push_back(paper);
    KeepPossible(media.Papers);
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
    OfferSheet(media, FormSheet, FormSheetName);
    OfferOwnSheet(media, media.PresetKeyword);
    if (!media.Papers.empty()) {
        media.DefaultPaper = PresetPaper(media);
    }
    AddStandIns(media);
    return media;
}

void OfferOwnSheet(CupsMedia& media, const std::string& keyword) {
    if (const std::optional<SheetSize> size = CustomSize(keyword)) {
        OfferSheet(media, *size, "Eigen formaat " + Measures(*size));
    }
    NumberMedia(media);
}

} // namespace desktop::cups
