#include "desktop/cups/PageOptions.h"

#include <gtest/gtest.h>

namespace desktop::cups {
namespace {

TEST(PlainChoiceTest, IsOneSidedByAnyMakersName) {
    EXPECT_EQ(PlainChoice("Duplex", {"None", "DuplexNoTumble", "DuplexTumble"}), "None");
    EXPECT_EQ(PlainChoice("EFDuplex", {"TopTop", "False", "TopBottom"}), "False");
    EXPECT_EQ(PlainChoice("JCLDuplex", {"DuplexTumble", "Simplex"}), "Simplex");
    EXPECT_EQ(PlainChoice("KMDuplex", {"Single", "Double"}), "Single");
    EXPECT_EQ(PlainChoice("TP_Zijden", {"Enkel", "1Sided", "LongEdge"}), "1Sided");
    EXPECT_EQ(PlainChoice("sides", {"two-sided-long-edge", "one-sided"}), "one-sided");
    EXPECT_EQ(PlainChoice("Duplex", {"DuplexNoTumble", "DuplexTumble"}), ""); // the printer can do no other
}

TEST(PlainChoiceTest, LeavesEveryPageAloneAndAsItIs) {
    EXPECT_EQ(PlainChoice("EFNUp", {"2up", "1up"}), "1up");
    EXPECT_EQ(PlainChoice("Booklet", {"Left", "Off"}), "Off");
    EXPECT_EQ(PlainChoice("MirrorPrint", {"True", "False"}), "False");
    EXPECT_EQ(PlainChoice("OutputOrder", {"Reverse", "Normal"}), "Normal");
    EXPECT_EQ(PlainChoice("PosterPrinting", {"2x2", "Off"}), "Off");
    EXPECT_EQ(PlainChoice("HPFitToPage", {"True", "False"}), "False");
    EXPECT_EQ(PlainChoice("StpiShrinkOutput", {"Shrink", "Crop", "Expand"}), "Crop");
    EXPECT_EQ(PlainChoice("BannerPage", {"Begin", "None"}), "None");
}

TEST(PlainChoiceTest, HasNothingToDoWithQualityColourFinishingAndAccounting) {
    EXPECT_EQ(PlainChoice("ColorModel", {"Gray", "RGB"}), "");
    EXPECT_EQ(PlainChoice("StapleLocation", {"None", "UpperLeft"}), "");
    EXPECT_EQ(PlainChoice("BindingLocation", {"None", "LongEdge", "ShortEdge"}), "");
    EXPECT_EQ(PlainChoice("BookletFold", {"None", "On"}), "");
    EXPECT_EQ(PlainChoice("TonerCleanUp", {"1", "2"}), "");
    EXPECT_EQ(PlainChoice("JobAccounting", {"None", "Custom"}), "");
    EXPECT_EQ(PlainChoice("Resolution", {"300dpi", "None"}), "");
}

struct ImposingCase {
    const char* Option;
    std::vector<std::string> Choices;
    std::vector<std::string> Imposing;
};

TEST(ImposingChoicesTest, PutMoreOnThePaperOrMoveIt) {
    const std::vector<ImposingCase> cases = {
        {"RIWatermark", {"Off", "On"}, {"On"}},
        {"ARWMText", {"None", "WMText1", "WMText2"}, {"WMText1", "WMText2"}},
        {"ARMarginShift", {"MarginNone", "MarginSmall"}, {"MarginSmall"}},
        {"JobRotate", {"None", "Rotate0", "Rotate90"}, {"Rotate90"}},
        {"Combination", {"None", "Booklet", "2in1"}, {"Booklet", "2in1"}},
        {"NUpPages", {"1up", "2up"}, {"2up"}},
        {"JCLFrontCoverOption", {"None", "1SidedPrinted"}, {"1SidedPrinted"}},
        {"LXOverlay", {"PrinterS", "On", "Off"}, {"On"}}, // the printer's own setting is not known
    };
    for (const ImposingCase& each : cases) {
        EXPECT_EQ(ImposingChoices(each.Option, each.Choices), each.Imposing) << each.Option;
    }
}

TEST(ImposingChoicesTest, AreNoneOfAnOptionThatOnlyTellsHowAnotherOneLooks) {
    EXPECT_TRUE(ImposingChoices("RIWMText", {"Confidential", "Copy"}).empty());
    EXPECT_TRUE(ImposingChoices("HQFrontCoverPaperSource", {"MultiTray", "1Tray"}).empty());
    EXPECT_TRUE(ImposingChoices("Watermark", {}).empty());
}

TEST(ImposingChoicesTest, AreNoMatterOfFinishingColourOrTrays) {
    for (const char* option : {"KMRotateCollate", "JCLJamRecovery", "ARCOverP", "HPAutorotate",
                               "PerfectBindingCoverPage", "Duplex", "Resolution"}) {
        EXPECT_TRUE(ImposingChoices(option, {"None", "On"}).empty()) << option;
    }
}

TEST(ChangesPagesTest, KnowsNamesOfServerFiltersAndMakersInAnyCase) {
    for (const char* option : {"sides",
                               "number-up",
                               "Page-Set",
                               "mirror",
                               "job-sheets",
                               "page-ranges",
                               "Duplex",
                               "EFDuplexing",
                               "fit-to-page",
                               "orientation-requested",
                               "Copies",
                               "NUp",
                               "page-label",
                               "crop-to-fit",
                               "fill",
                               "booklet",
                               "booklet-signature",
                               "ipp-attribute-fidelity",
                               "multiple-document-handling",
                               "AP_FIRSTPAGE_InputSlot"}) {
        EXPECT_TRUE(ChangesPages(option)) << option;
    }
    for (const char* option :
         {"print-quality", "finishings", "job-hold-until", "ColorModel", "x-afdeling", "MediaType", ""}) {
        EXPECT_FALSE(ChangesPages(option)) << option;
    }
}

} // namespace
} // namespace desktop::cups
