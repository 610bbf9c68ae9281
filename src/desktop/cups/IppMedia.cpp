#include "desktop/cups/IppMedia.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>

#include <cups/cups.h>
#include <cups/pwg.h>

#include "desktop/cups/MediaWording.h"
#include "desktop/cups/PaperTable.h"
#include "desktop/cups/PossiblePaper.h"

namespace desktop::cups {

namespace {

/// Sizes within this are one, in hundredths of a millimetre.
constexpr int SameWithin = 50;

// Beginnings of the two keywords that bound the sizes that one can make up.
constexpr std::string_view LeastSize = "custom_min";
constexpr std::string_view MostSize = "custom_max";

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

std::vector<ipp_t*> Collections(ipp_t* attributes, const char* name) {
    std::vector<ipp_t*> collections;
    if (ipp_attribute_t* attribute = ippFindAttribute(attributes, name, IPP_TAG_BEGIN_COLLECTION)) {
        for (int i = 0; i < ippGetCount(attribute); ++i) {
            collections.push_back(ippGetCollection(attribute, i));
        }
    }
    return collections;
}

/// A side of a size, which may lie between two lengths; hundredths of a millimetre.
struct Side {
    int Least = 0;
    int Most = 0;

    bool IsRange() const { return Least < Most; }
    bool Is(int length) const { return Least == Most && std::abs(Least - length) <= SameWithin; }
};

Side SideOf(ipp_t* size, const char* name) {
    Side side;
    ipp_attribute_t* attribute = ippFindAttribute(size, name, IPP_TAG_ZERO);
    if (attribute != nullptr && ippGetValueTag(attribute) == IPP_TAG_RANGE) {
        side.Least = ippGetRange(attribute, 0, &side.Most);
    } else if (attribute != nullptr && ippGetValueTag(attribute) == IPP_TAG_INTEGER) {
        side.Least = side.Most = ippGetInteger(attribute, 0);
    }
    return side;
}

double MarginOf(ipp_t* collection, const char* name) {
    ipp_attribute_t* margin = ippFindAttribute(collection, name, IPP_TAG_INTEGER);
    return margin == nullptr ? 0 : TwipsOfHundredths(ippGetInteger(margin, 0));
}

Paper MarginsOf(ipp_t* collection) {
    Paper margins;
    margins.Left = MarginOf(collection, "media-left-margin");
    margins.Top = MarginOf(collection, "media-top-margin");
    margins.Right = MarginOf(collection, "media-right-margin");
    margins.Bottom = MarginOf(collection, "media-bottom-margin");
    return margins;
}

/// The sizes that one can make up, by the ranges and by the two keywords that bound them.
std::vector<SizeRange> CustomSizesOf(ipp_t* attributes) {
    std::vector<SizeRange> ranges;
    for (ipp_t* size : Collections(attributes, "media-size-supported")) {
        const Side x = SideOf(size, "x-dimension");
        const Side y = SideOf(size, "y-dimension");
        if (x.IsRange() || y.IsRange()) {
            ranges.push_back({{TwipsOfHundredths(x.Least), TwipsOfHundredths(y.Least)},
                              {TwipsOfHundredths(x.Most), TwipsOfHundredths(y.Most)}});
        }
    }
    SheetSize least;
    for (const std::string& keyword : Keywords(attributes, "media-supported")) {
        const std::optional<SheetSize> bound = CustomSize(keyword);
        if (bound && keyword.starts_with(LeastSize)) {
            least = *bound;
        } else if (bound && keyword.starts_with(MostSize)) {
            ranges.push_back({least, *bound});
        }
    }
    return ranges;
}

/// The margins of a paper by the printer's database; the widest of them where it has the size more than once,
/// as what is drawn within those is reached on any.
Paper MarginsOfSize(const std::vector<ipp_t*>& database, const pwg_media_t& size, const Paper& preset) {
    std::optional<Paper> widest;
    for (ipp_t* entry : database) {
        const std::vector<ipp_t*> told = Collections(entry, "media-size");
        if (told.empty() || !SideOf(told.front(), "x-dimension").Is(size.width) ||
            !SideOf(told.front(), "y-dimension").Is(size.length)) {
            continue;
        }
        const Paper margins = MarginsOf(entry);
        Paper& all = widest ? *widest : widest.emplace(margins);
        all.Left = std::max(all.Left, margins.Left);
        all.Top = std::max(all.Top, margins.Top);
        all.Right = std::max(all.Right, margins.Right);
        all.Bottom = std::max(all.Bottom, margins.Bottom);
    }
    return widest.value_or(preset);
}

/// The number of the bin that the queue takes where nobody chooses; 0 if it does not tell.
std::int16_t PresetBin(const std::vector<ipp_t*>& preset, const std::vector<Bin>& bins) {
    std::string source = "auto"; // chooses by itself, if there is such a bin
    if (!preset.empty()) {
        const std::vector<std::string> told = Keywords(preset.front(), "media-source");
        source = told.empty() ? source : told.front();
    }
    const auto found =
        std::find_if(bins.begin(), bins.end(), [&source](const Bin& bin) { return bin.PwgSource == source; });
    return found == bins.end() ? std::int16_t{0} : found->Id;
}

} // namespace

CupsMedia MediaOfAttributes(ipp_t* attributes) {
    CupsMedia media;
    const std::vector<ipp_t*> preset = Collections(attributes, "media-col-default");
    const std::vector<ipp_t*> database = Collections(attributes, "media-col-database");
    media.CustomMargins = preset.empty() ? Paper() : MarginsOf(preset.front());
    media.CustomSizes = CustomSizesOf(attributes);
    for (const std::string& keyword : Keywords(attributes, "media-supported")) {
        const pwg_media_t* size = pwgMediaForPWG(keyword.c_str());
        if (size == nullptr || size->width <= 0 || size->length <= 0 || keyword.starts_with(LeastSize) ||
            keyword.starts_with(MostSize)) {
            continue; // a type of media, or a bound of sizes that one can make up
        }
        Paper paper = MarginsOfSize(database, *size, media.CustomMargins);
        paper.Id = PaperCode(keyword);
        paper.PwgMedia = keyword;
        paper.Width = TwipsOfHundredths(size->width);
        paper.Height = TwipsOfHundredths(size->length);
        paper.Name = WordingOfPaper(keyword, {paper.Width, paper.Height});
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
    const std::vector<std::string> told = Keywords(attributes, "media-default");
    media.PresetKeyword = told.empty() ? std::string() : told.front();
    media.DefaultBin = PresetBin(preset, media.Bins);
    return media;
}

} // namespace desktop::cups
