#include "desktop/cups/CupsPpd.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include <cups/cups.h>
#include <cups/ppd.h>
#include <cups/pwg.h>

#include "base/Units.h"
#include "desktop/cups/MediaWording.h"
#include "desktop/cups/PageOptions.h"
#include "desktop/cups/PaperTable.h"
#include "desktop/cups/PossiblePaper.h"
#include "desktop/cups/QueueDefaults.h"

// The attributes that are to replace PPD files do not have the wording of their papers and bins.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace desktop::cups {

namespace {

using base::TwipsPerPoint;

struct ClosePpd {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};

double Twips(float points) {
    return static_cast<double>(points) * TwipsPerPoint;
}

SheetSize SizeOf(const pwg_media_t& media) {
    return {TwipsOfHundredths(media.width), TwipsOfHundredths(media.length)};
}

/// A variant ("A4.Borderless") is a paper of its own and not the one that Windows knows by a code.
bool IsVariant(const Paper& paper) {
    return paper.PpdSize.find('.') != std::string::npos;
}

/// Names of sizes are older than their standard, and makers have meant different sheets by them: a standard
/// name is the paper's where it is the same sheet.
void NameByStandard(Paper& paper) {
    const pwg_media_t* const known = IsVariant(paper) ? nullptr : pwgMediaForPPD(paper.PpdSize.c_str());
    if (known != nullptr && IsSameSheet(SizeOf(*known), {paper.Width, paper.Height})) {
        paper.PwgMedia = known->pwg;
        paper.Id = PaperCode(known->pwg);
    }
}

/// Windows' code for a paper whose name told none, by its size; the first of that size has it.
void GiveCodeBySize(std::vector<Paper>& papers) {
    for (Paper& paper : papers) {
        const pwg_media_t* const known =
            paper.Id != 0 || IsVariant(paper)
                ? nullptr
                : pwgMediaForSize(HundredthsOf(paper.Width), HundredthsOf(paper.Height));
        if (known == nullptr || !IsSameSheet(SizeOf(*known), {paper.Width, paper.Height})) {
            continue;
        }
        const std::int16_t code = PaperCode(known->pwg);
        if (std::none_of(papers.begin(), papers.end(),
                         [code](const Paper& each) { return each.Id == code; })) {
            paper.Id = code;
        }
    }
}

Paper PaperOf(ppd_file_t* ppd, const ppd_choice_t& choice) {
    Paper paper;
    paper.PpdSize = choice.choice;
    paper.PwgMedia = choice.choice;
    if (const ppd_size_t* size = ppdPageSize(ppd, choice.choice)) {
        paper.Width = Twips(size->width);
        paper.Height = Twips(size->length);
        paper.Left = Twips(size->left);
        paper.Bottom = Twips(size->bottom);
        paper.Right = paper.Width - Twips(size->right);
        paper.Top = paper.Height - Twips(size->top);
    }
    paper.Name = paper.PpdSize == choice.text ? WordingOfPaper(paper.PpdSize, {paper.Width, paper.Height})
                                              : std::string(choice.text);
    NameByStandard(paper);
    return paper;
}

void ReadPapers(ppd_file_t* ppd, CupsMedia& media) {
    if (const ppd_option_t* sizes = ppdFindOption(ppd, "PageSize")) {
        media.PresetKeyword = sizes->defchoice;
        for (int i = 0; i < sizes->num_choices; ++i) {
            const std::string choice = sizes->choices[i].choice;
            const bool isThere = std::any_of(media.Papers.begin(), media.Papers.end(),
                                             [&choice](const Paper& each) { return each.PpdSize == choice; });
            if (choice != "Custom" && !isThere) {
                media.Papers.push_back(PaperOf(ppd, sizes->choices[i]));
            }
        }
    }
    GiveCodeBySize(media.Papers);
    ppd_size_t least;
    ppd_size_t most;
    media.IsByPpd = true;
    if (ppdPageSizeLimits(ppd, &least, &most) != 0) {
        media.CustomSizes.push_back(
            {{Twips(least.width), Twips(least.length)}, {Twips(most.width), Twips(most.length)}});
        media.CustomMargins.Left = Twips(ppd->custom_margins[0]);
        media.CustomMargins.Bottom = Twips(ppd->custom_margins[1]);
        media.CustomMargins.Right = Twips(ppd->custom_margins[2]);
        media.CustomMargins.Top = Twips(ppd->custom_margins[3]);
    }
}

void ReadBins(ppd_file_t* ppd, CupsMedia& media) {
    const ppd_option_t* slots = nullptr;
    for (const char* name : {"InputSlot", "HPPaperSource", "PaperSources"}) { // some makers have their own
        slots = slots != nullptr ? slots : ppdFindOption(ppd, name);
    }
    for (int i = 0; slots != nullptr && i < slots->num_choices; ++i) {
        Bin bin;
        bin.Id = BinCode(slots->choices[i].choice);
        bin.PpdOption = slots->keyword;
        bin.PpdSlot = slots->choices[i].choice;
        bin.Name = bin.PpdSlot == slots->choices[i].text ? WordingOfBin(bin.PpdSlot) : slots->choices[i].text;
        bin.StandIn = bin.PpdSlot == "Unknown"; // what the printer takes by itself
        if (std::none_of(media.Bins.begin(), media.Bins.end(),
                         [&bin](const Bin& each) { return each.PpdSlot == bin.PpdSlot; })) {
            media.Bins.push_back(bin);
        }
    }
    NumberMedia(media);
    for (const Bin& bin : media.Bins) {
        if (bin.PpdSlot == slots->defchoice) {
            media.DefaultBin = bin.Id;
        }
    }
}

/// What is installed in the printer is no matter of a document.
bool IsOfDocuments(const ppd_group_t& group) {
    return !std::string_view(group.name).starts_with("Installable");
}

void ReadImposing(const ppd_option_t& option, const std::vector<std::string>& choices, CupsMedia& media) {
    ImposingOption imposing{option.keyword, option.text, option.defchoice, {}};
    for (const std::string& choice : ImposingChoices(option.keyword, choices)) {
        const auto place = std::find(choices.begin(), choices.end(), choice) - choices.begin();
        imposing.Choices[choice] = option.choices[place].text;
    }
    if (!imposing.Choices.empty()) {
        media.Imposing.push_back(std::move(imposing));
    }
}

void ReadPageOptions(const ppd_group_t& group, CupsMedia& media) {
    for (int i = 0; i < group.num_options; ++i) {
        const ppd_option_t& option = group.options[i];
        std::vector<std::string> choices;
        choices.reserve(static_cast<std::size_t>(option.num_choices));
        for (int j = 0; j < option.num_choices; ++j) {
            choices.emplace_back(option.choices[j].choice);
        }
        if (const std::string plain = PlainChoice(option.keyword, choices); !plain.empty()) {
            media.PlainChoices[option.keyword] = plain;
        } else {
            ReadImposing(option, choices, media);
        }
    }
    for (int i = 0; i < group.num_subgroups; ++i) {
        ReadPageOptions(group.subgroups[i], media);
    }
}

void ReadResolution(ppd_file_t* ppd, CupsMedia& media) {
    for (const char* name : ResolutionOptions) {
        if (const ppd_option_t* option = ppdFindOption(ppd, name); DotsIn(media.Resolution) == 0 && option) {
            media.Resolution = option->defchoice;
        }
    }
    if (const ppd_attr_t* attribute = ppdFindAttr(ppd, "DefaultResolution", nullptr);
        DotsIn(media.Resolution) == 0 && attribute != nullptr && attribute->value != nullptr) {
        media.Resolution = attribute->value;
    }
}

} // namespace

CupsMedia MediaOfPpd(const std::string& file) {
    CupsMedia media;
    const std::unique_ptr<ppd_file_t, ClosePpd> ppd(ppdOpenFile(file.c_str()));
    if (ppd == nullptr) {
        return media;
    }
    ppdLocalize(ppd.get());
    ReadPapers(ppd.get(), media);
    KeepPossible(media.Papers);
    ReadBins(ppd.get(), media);
    for (int i = 0; i < ppd->num_groups; ++i) {
        if (IsOfDocuments(ppd->groups[i])) {
            ReadPageOptions(ppd->groups[i], media);
        }
    }
    ReadResolution(ppd.get(), media);
    return media;
}

} // namespace desktop::cups
