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
