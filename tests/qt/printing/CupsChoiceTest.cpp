#include "platform/qt/CupsChoice.h"

#include <gtest/gtest.h>

namespace platform::qt {
namespace {

/// Two papers and two bins, as a queue with a PPD and one without call them.
CupsMedia TwoOfEach() {
    CupsMedia media;
    media.Papers.resize(2);
    media.Papers[0].PpdSize = "A4";
    media.Papers[0].PwgMedia = "iso_a4_210x297mm";
    media.Papers[1].PwgMedia = "na_legal_8.5x14in";
    media.Bins.resize(2);
    media.Bins[0].PpdSlot = "Upper";
    media.Bins[0].PwgSource = "top";
    media.Bins[1].PwgSource = "tray-3";
    return media;
}

TEST(CupsChoice, FindsPaperAndBinUnderEachName) {
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

TEST(CupsChoice, NamesNothingForAStandIn) {
    Paper paper;
    paper.PwgMedia = "iso_a4_210x297mm";
    paper.StandIn = true;
    Bin bin;
    bin.StandIn = true;
    EXPECT_TRUE(PaperOptions(paper).empty());
    EXPECT_TRUE(BinOptions(bin).empty());
}

TEST(CupsChoice, KeepsPagesAsDrawnAndOtherOptionsAsTheyAre) {
    const CupsOptions all = {{"number-up", "2"},     {"Landscape", "true"},  {"media", "A5"},
                             {"ManualFeed", "True"}, {"sides", "one-sided"}, {"fitplot", "true"}};
    const auto left = [&all](bool paper, bool bin) {
        CupsOptions options = all;
        KeepPagesAsDrawn(options, paper, bin);
        return options;
    };
    const CupsOptions neutral = {{"sides", "one-sided"}};
    CupsOptions withFeed = neutral;
    withFeed["ManualFeed"] = "True";
    CupsOptions withMedia = withFeed;
    withMedia["media"] = "A5";
    EXPECT_EQ(left(true, true), neutral);
    EXPECT_EQ(left(true, false), withFeed);
    EXPECT_EQ(left(false, false), withMedia);
}

} // namespace
} // namespace platform::qt
