#include "desktop/cups/SheetSize.h"

#include <clocale>

#include <gtest/gtest.h>

#include "desktop/cups/MediaWording.h"

namespace desktop::cups {
namespace {

TEST(SheetSizeTest, IsInEachKeywordOfAMadeUpSize) {
    for (const char* keyword :
         {"Custom.210x304.8mm", "Custom.21x30.48cm", "Custom.595.2756x864", "Custom.595.2756x864pt",
          "Custom.8.26772x12in", "custom_210x304.8mm_210x304.8mm", "custom_mijn-vel_210x304.8mm"}) {
        const std::optional<SheetSize> size = CustomSize(keyword);
        ASSERT_TRUE(size) << keyword;
        EXPECT_NEAR(size->Width, FormSheet.Width, 0.1) << keyword;
        EXPECT_NEAR(size->Height, FormSheet.Height, 0.1) << keyword;
    }
    for (const char* keyword : {"", "A4", "Custom", "Custom.", "Custom.210", "Custom.210x", "Custom.x304mm",
                                "Custom.210x304.8ell", "Custom.0x10mm", "Custom.-1x10mm", "Custom.1x99999in",
                                "custom_", "Custom.nanxinfmm", "iso_a4_210x297mm", "Custom.1e300x1mm"}) {
        EXPECT_FALSE(CustomSize(keyword)) << keyword;
    }
}

TEST(SheetSizeTest, IsWrittenToAHundredthOfAMillimetre) {
    EXPECT_EQ(PpdKeyword(FormSheet), "Custom.210x304.8mm");
    EXPECT_EQ(PwgKeyword(FormSheet), "custom_210x304.8mm_210x304.8mm");
    EXPECT_EQ(Measures(FormSheet), "210 x 304,8 mm");
    EXPECT_EQ(Measures({TwipsOfHundredths(5), TwipsOfHundredths(10005)}), "0,05 x 100,05 mm");
    EXPECT_EQ(HundredthsOf(FormSheet.Height), 30480);
}

TEST(SheetSizeTest, IsTheSameWithinHalfAMillimetre) {
    const double half = TwipsOfHundredths(50);
    EXPECT_TRUE(IsSameSheet(FormSheet, {FormSheet.Width - half * 0.99, FormSheet.Height + half * 0.99}));
    EXPECT_FALSE(IsSameSheet(FormSheet, {FormSheet.Width - half * 1.01, FormSheet.Height}));
    EXPECT_FALSE(IsSameSheet(FormSheet, {FormSheet.Width, FormSheet.Height + half * 1.01}));
    EXPECT_FALSE(IsSameSheet(FormSheet, {FormSheet.Height, FormSheet.Width}));
}

TEST(MediaWordingTest, IsDutchForAKeyword) {
    EXPECT_EQ(WordingOfBin("ByPassTray"), "Multifunctionele lade");
    EXPECT_EQ(WordingOfBin("by-pass-tray"), "Multifunctionele lade");
    EXPECT_EQ(WordingOfBin("tray-1"), "Lade 1");
    EXPECT_EQ(WordingOfBin("Tray12"), "Lade 12");
    EXPECT_EQ(WordingOfBin("roll-2"), "Rol 2");
    EXPECT_EQ(WordingOfBin("auto"), "Automatisch");
    EXPECT_EQ(WordingOfBin("Feeder7"), "Feeder7");
    EXPECT_EQ(WordingOfBin(""), "");
}

TEST(MediaWordingTest, NamesAPaperByItsSizeWhereTheKeywordIsNoName) {
    EXPECT_EQ(WordingOfPaper("iso_a4_210x297mm", {}), "A4");
    EXPECT_EQ(WordingOfPaper("na_letter_8.5x11in", {}), "Letter");
    EXPECT_EQ(WordingOfPaper("EnvDL", {}), "Enveloppe DL");
    EXPECT_EQ(WordingOfPaper("iso_dl_110x220mm", {}), "Enveloppe DL");
    EXPECT_EQ(WordingOfPaper("Legal", {}), "Legal");
    EXPECT_EQ(WordingOfPaper("A4.Borderless", {}), "A4 zonder rand");
    EXPECT_EQ(WordingOfPaper("om_kaart_100x200mm", {5669.29, 11338.58}), "100 x 200 mm");
    EXPECT_EQ(WordingOfPaper("4x6", {5760, 8640}), "101,6 x 152,4 mm");
    EXPECT_EQ(WordingOfPaper("w288h432", {5760, 8640}), "101,6 x 152,4 mm");
}

} // namespace
} // namespace desktop::cups
