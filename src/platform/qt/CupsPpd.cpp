#include "platform/qt/CupsPpd.h"

#include "platform/qt/PaperTable.h"
#include "platform/qt/PossiblePaper.h"

#include <cups/ppd.h>
#include <cups/pwg.h>

#include <memory>
#include <string_view>

// The attributes that are to replace PPD files do not have the wording of their papers and bins.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace platform::qt {

namespace {

constexpr double TwipsPerPoint = 20;
constexpr double TwipsPerHundredthMillimetre = 1440.0 / 2540.0;

struct ClosePpd {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};

Paper PaperOf(ppd_file_t* ppd, const ppd_choice_t& choice) {
    Paper paper;
    paper.Name = choice.text;
    paper.PpdSize = choice.choice;
    paper.PwgMedia = choice.choice;
    if (const ppd_size_t* size = ppdPageSize(ppd, choice.choice)) {
        paper.Width = static_cast<double>(size->width) * TwipsPerPoint;
        paper.Height = static_cast<double>(size->length) * TwipsPerPoint;
        paper.Left = static_cast<double>(size->left) * TwipsPerPoint;
        paper.Bottom = static_cast<double>(size->bottom) * TwipsPerPoint;
        paper.Right = paper.Width - static_cast<double>(size->right) * TwipsPerPoint;
        paper.Top = paper.Height - static_cast<double>(size->top) * TwipsPerPoint;
    }
    // A variant ("A4.Borderless") is a paper of its own and not the one that Windows knows by a code.
    const bool isVariant = std::string_view(choice.choice).find('.') != std::string_view::npos;
    if (const pwg_media_t* known = isVariant ? nullptr : pwgMediaForPPD(choice.choice)) {
        paper.Id = PaperCode(known->pwg);
        paper.PwgMedia = known->pwg;
        // The PPD has whole points; the margins stay where they are.
        paper.Width = known->width * TwipsPerHundredthMillimetre;
        paper.Height = known->length * TwipsPerHundredthMillimetre;
    }
    return paper;
}

} // namespace

CupsMedia MediaOfPpd(const std::string& file) {
    CupsMedia media;
    const std::unique_ptr<ppd_file_t, ClosePpd> ppd(ppdOpenFile(file.c_str()));
    if (ppd == nullptr) {
        return media;
    }
    ppdLocalize(ppd.get());
    std::string defaultPaper;
    std::string defaultBin;
    if (const ppd_option_t* sizes = ppdFindOption(ppd.get(), "PageSize")) {
        defaultPaper = sizes->defchoice;
        for (int i = 0; i < sizes->num_choices; ++i) {
            const Paper paper = PaperOf(ppd.get(), sizes->choices[i]);
            if (paper.PpdSize != "Custom") {
                media.Papers.push_back(paper);
            }
        }
    }
    if (const ppd_option_t* slots = ppdFindOption(ppd.get(), "InputSlot")) {
        defaultBin = slots->defchoice;
        for (int i = 0; i < slots->num_choices; ++i) {
            Bin bin;
            bin.Id = BinCode(slots->choices[i].choice);
            bin.Name = slots->choices[i].text;
            bin.PpdSlot = slots->choices[i].choice;
            media.Bins.push_back(bin);
        }
    }
    KeepPossible(media.Papers);
    NumberMedia(media);
    for (const Paper& paper : media.Papers) {
        if (paper.PpdSize == defaultPaper) {
            media.DefaultPaper = paper.Id;
        }
    }
    for (const Bin& bin : media.Bins) {
        if (bin.PpdSlot == defaultBin) {
            media.DefaultBin = bin.Id;
        }
    }
    return media;
}

} // namespace platform::qt
