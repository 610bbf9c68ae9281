#include "desktop/cups/CupsChoice.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

namespace desktop::cups {
namespace {

/// Two papers and two bins, as a queue with a PPD and one without call them.
CupsMedia TwoOfEach() {
    CupsMedia media;
    media.Papers.resize(2);
    media.Papers[0].PpdSize = "A4";
    media.Papers[0].PwgMedia = "iso_a4_210x297mm";
    media.Papers[1].PwgMedia = "na_legal_8.5x14in";
    media.Bins.resize(2);
    media.Bins[0].PpdOption = "InputSlot";
    media.Bins[0].PpdSlot = "Upper";
    media.Bins[0].PwgSource = "top";
    media.Bins[1].PwgSource = "tray-3";
    return media;
}

TEST(CupsChoiceTest, FindsPaperAndBinUnderEachName) {
    const CupsMedia media = TwoOfEach();
    const Paper* const a4 = &media.Papers[0];
    const Paper* const legal = &media.Papers[1];
    const Bin* const upper = &media.Bins[0];
    const Bin* const third = &media.Bins[1];
    struct Case {
        CupsOptions Options;
        const Paper* ExpectedPaper;
        const Bin* ExpectedBin;
    };
    for (const Case& each : {Case{{}, nullptr, nullptr}, Case{{{"media", "A4"}}, a4, nullptr},
                             Case{{{"media", "A4,Upper"}}, a4, upper},
                             Case{{{"media", "tray-3,Glossy,na_legal_8.5x14in"}}, legal, third},
                             Case{{{"media", "iso_a4_210x297mm,"}, {"InputSlot", "Upper"}}, a4, upper},
                             Case{{{"media", "A4,Upper"}, {"media-source", "tray-3"}}, a4, third},
                             Case{{{"PageSize", "A4"}, {"media", "na_legal_8.5x14in,Upper"}}, a4, upper},
                             Case{{{"PageSize", "Weg"}, {"media", "A4"}}, nullptr, nullptr},
                             Case{{{"media", ",,"}}, nullptr, nullptr}}) {
        EXPECT_EQ(PaperIn(media, each.Options), each.ExpectedPaper);
        EXPECT_EQ(BinIn(media, each.Options), each.ExpectedBin);
    }
}

TEST(CupsChoiceTest, NamesNothingForAStandIn) {
    Paper paper;
    paper.PwgMedia = "iso_a4_210x297mm";
    paper.StandIn = true;
    Bin bin;
    bin.StandIn = true;
    EXPECT_TRUE(PaperOptions(paper).empty());
    EXPECT_TRUE(BinOptions(bin).empty());
}

TEST(CupsChoiceTest, FindsAMadeUpSizeByItsSides) {
    CupsMedia media;
    media.IsByPpd = true;
    media.CustomSizes = {{{1440, 1440}, {20000, 20000}}};
    OfferSheet(media, FormSheet, FormSheetName);
    ASSERT_EQ(media.Papers.size(), 1U);
    for (const char* own : {"Custom.210x304.8mm", "Custom.595.2756x864", "custom_210x304.8mm_210x304.8mm"}) {
        EXPECT_EQ(PaperIn(media, {{"PageSize", own}}), &media.Papers[0]) << own;
        EXPECT_EQ(PaperIn(media, {{"media", own}}), &media.Papers[0]) << own;
        EXPECT_EQ(OwnSizeIn({{"media", std::string("Upper,") + own}}), own);
    }
    EXPECT_EQ(PaperIn(media, {{"PageSize", "Custom.200x300mm"}}), nullptr);
    EXPECT_EQ(OwnSizeIn({{"PageSize", "A4"}, {"media", "Custom.200x300mm"}}), "");
}

constexpr std::array<const char*, 3> TwoSided = {"two-sided-long-edge", "DuplexTumble", "True"};

TEST(CupsChoiceTest, SaysWhatTheDocumentNeedsWhateverTheUserAndTheServerHave) {
    CupsMedia media = TwoOfEach();
    media.IsByPpd = true;
    media.PlainChoices = {{"Duplex", "None"}, {"EFDuplex", "False"}};
    const CupsOptions own = {{"sides", TwoSided[0]},       {"DUPLEX", TwoSided[1]},
                             {"EFDuplexing", TwoSided[2]}, {"number-up", "4"},
                             {"Page-Set", "even"},         {"mirror", "true"},
                             {"page-border", "double"},    {"job-sheets", "standard,none"},
                             {"page-ranges", "2"},         {"OutputOrder", "Reverse"},
                             {"fit-to-page", "true"},      {"scaling", "50"},
                             {"Landscape", "true"},        {"media", "A5"},
                             {"ManualFeed", "True"},       {"copies", "3"},
                             {"ColorModel", "Gray"},       {"print-quality", "5"},
                             {"finishings", "4"},          {"job-account-id", "7"},
                             {"page-label", "Geheim"},     {"multiple-document-handling", "single-document"}};
    const CupsOptions known = {{"page-ranges-default", "1-2"},   {"booklet-default", "true"},
                               {"page-label-default", "Geheim"}, {"orientation-requested-default", "4"},
                               {"fitplot-default", "true"},      {"scaling-default", "100"}};
    EXPECT_EQ(JobOptions(media, own, known, media.Papers[0], &media.Bins[0]),
              (CupsOptions{{"PageSize", "A4"},
                           {"media", "iso_a4_210x297mm"},
                           {"InputSlot", "Upper"},
                           {"media-source", "top"},
                           {"copies", "1"},
                           {"document-format", "application/pdf"},
                           {"sides", "one-sided"},
                           {"Duplex", "None"},
                           {"EFDuplex", "False"},
                           {"number-up", "1"},
                           {"page-set", "all"},
                           {"mirror", "false"},
                           {"page-border", "none"},
                           {"job-sheets", "none,none"},
                           {"outputorder", "normal"},
                           {"print-scaling", "none"},
                           {"page-ranges", "1-2147483647"},
                           {"orientation-requested", "3"},
                           {"fitplot", "false"},
                           {"booklet", "false"},
                           {"page-label", ""},
                           {"ColorModel", "Gray"},
                           {"print-quality", "5"},
                           {"finishings", "4"},
                           {"job-account-id", "7"}}));
}

TEST(CupsChoiceTest, DescribesTheSheetAndItsBinToAQueueWithoutAPpd) {
    const CupsMedia media = TwoOfEach();
    Paper own;
    own.PwgMedia = PwgKeyword(FormSheet);
    own.Width = FormSheet.Width;
    own.Height = FormSheet.Height;
    CupsOptions options = JobOptions(media, {{"media-col", "{media-source=top}"}}, {}, own, &media.Bins[1]);
    EXPECT_EQ(options["media-col"], "{media-size={x-dimension=21000 y-dimension=30480} media-source=tray-3}");
    EXPECT_EQ(options["PageSize"],
              "Custom.210x304.8mm");         // a server that has the PPD takes it before all else
    EXPECT_FALSE(options.contains("media")); // no keyword that every server knows
}

TEST(CupsChoiceTest, NamesNoBinWhereThePrinterChooses) {
    CupsMedia media = TwoOfEach();
    media.IsByPpd = true;
    Bin printers;
    printers.StandIn = true;
    media.Bins.insert(media.Bins.begin(), printers);
    const CupsOptions options = JobOptions(media, {{"InputSlot", "Upper"}, {"ManualFeed", "True"}}, {},
                                           media.Papers[0], &media.Bins[0]);
    EXPECT_FALSE(options.contains("InputSlot"));
    EXPECT_FALSE(options.contains("ManualFeed"));
    EXPECT_FALSE(options.contains("media-source"));
}

TEST(CupsChoiceTest, LeavesTheUsersPaperAndBinToAQueueThatTellsNone) {
    CupsMedia media;
    Paper paper;
    paper.StandIn = true;
    Bin bin;
    bin.StandIn = true;
    media.Bins.push_back(bin);
    const CupsOptions options =
        JobOptions(media, {{"media", "A5"}, {"InputSlot", "Upper"}}, {}, paper, &media.Bins[0]);
    EXPECT_EQ(options.at("media"), "A5");
    EXPECT_EQ(options.at("InputSlot"), "Upper");
    EXPECT_FALSE(options.contains("media-col"));
}

} // namespace
} // namespace desktop::cups
