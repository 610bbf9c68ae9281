#include "desktop/cups/QueueDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace desktop::cups {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DotsInTest, IsTheFewerOfTwoDirections) {
    EXPECT_EQ(DotsIn("600dpi"), 600);
    EXPECT_EQ(DotsIn("600x300dpi"), 300);
    EXPECT_EQ(DotsIn("60x72dpi"), 60);
}

TEST(DotsInTest, IsNoneInAnyOtherWord) {
    for (const char* word : {"", "dpi", "xdpi", "600", "600x", "600xdpi", "x600dpi", "-600dpi", "118x118dpcm",
                             "FromPrintoutMode", "600dpi ", "99999999999dpi"}) {
        EXPECT_EQ(DotsIn(word), 0) << word;
    }
}

class QueueDefaultsTest : public testing::Test {
  protected:
    QueueDefaultsTest() {
        Media.IsByPpd = true;
        Media.Resolution = "600dpi";
        Media.Imposing = {
            {"RIWatermark", "Watermark", "Off", {{"On", "Aan"}}},
            {"MarginShift", "Marge verschuiven", "Small", {{"Small", "Klein"}, {"Large", "Groot"}}}};
    }

    int Dots(const CupsOptions& own = {}) const { return DotsPerInchOf(Media, own, Known); }
    std::vector<std::string> Imposed(const CupsOptions& own = {}) const {
        return ImposedOn(Media, own, Known);
    }

    CupsMedia Media;
    std::map<std::string, std::string> Known = {{"printer-resolution-default", "300x300dpi"}};
};

TEST_F(QueueDefaultsTest, TheUsersResolutionGoesBeforeTheMakers) {
    EXPECT_EQ(Dots(), 600);
    EXPECT_EQ(Dots({{"resolution", "180x360dpi"}}), 180);
    EXPECT_EQ(Dots({{"printer-resolution", "1200dpi"}}), 1200);
    EXPECT_EQ(Dots({{"Resolution", "Fijn"}}), 600);
}

TEST_F(QueueDefaultsTest, AServersResolutionCountsWhereThereIsNoPpd) {
    Media.Resolution = "";
    EXPECT_EQ(Dots(), 0); // the server makes one up
    Media.IsByPpd = false;
    EXPECT_EQ(Dots(), 300);
    Known.clear();
    EXPECT_EQ(Dots(), 0);
}

TEST_F(QueueDefaultsTest, NamesWhatIsImposedAsTheDriverWordsIt) {
    EXPECT_THAT(Imposed(), ElementsAre("Marge verschuiven: Klein"));
    EXPECT_THAT(Imposed({{"riwatermark", "On"}, {"MarginShift", "None"}}), ElementsAre("Watermark: Aan"));
}

TEST_F(QueueDefaultsTest, TheUsersChoiceOfWhatJobsDoNotPassOnCountsForNothing) {
    Media.Imposing = {{"Booklet", "Boekje", "Left", {{"Left", "Links"}}}};
    EXPECT_THAT(Imposed({{"Booklet", "None"}}), ElementsAre("Boekje: Links"));
}

TEST_F(QueueDefaultsTest, ASheetForSecrecyBeforeAndBehindTheDocumentIsTheServers) {
    Media.Imposing.clear();
    for (const char* sheets : {"none,none", "standard,standard", "confidential,none", "confidential", ""}) {
        Known["job-sheets-default"] = sheets;
        EXPECT_THAT(Imposed(), IsEmpty()) << sheets;
    }
    Known["job-sheets-default"] = "confidential,confidential";
    EXPECT_THAT(Imposed(), ElementsAre("job-sheets: confidential"));
}

} // namespace
} // namespace desktop::cups
