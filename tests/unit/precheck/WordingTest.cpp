#include "precheck/Wording.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "base/Text.h"

namespace precheck {

TEST(WordingTest, TextsAreQuotedAsTheyAre) {
    EXPECT_EQ(Quoted("Jansen & Zn. <b>"), "\"Jansen & Zn. <b>\"");
    EXPECT_EQ(Quoted(""), "\"\"");
}

TEST(WordingTest, WhatIsNoTextIsShownAsOneMark) {
    EXPECT_EQ(Shown(std::string("a\0b\r\n\t", 6)), "a\xEF\xBF\xBD"
                                                   "b\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Shown("\xFF"), "\xEF\xBF\xBD");
}

TEST(WordingTest, LongTextsAreCutByCharacters) {
    std::string longest;
    for (int i = 0; i < 60; ++i) {
        longest += "é";
    }
    EXPECT_EQ(Shown(longest), longest);
    EXPECT_EQ(Shown(longest + "é"), longest + "…");
    EXPECT_EQ(base::text::Length(Shown(std::string(30000, 'x'))), 61U);
}

TEST(WordingTest, SettingsAreToldWithTheirValue) {
    EXPECT_EQ(SettingIs("GMUVerkeer", "0"), "GMUVerkeer is \"0\"");
    EXPECT_EQ(SettingIs("GMUVerkeer", ""), "GMUVerkeer is leeg");
}

TEST(WordingTest, LengthsHaveACommaAndAreNeverNothing) {
    EXPECT_EQ(Millimetres(56.693), "1,0 mm");
    EXPECT_EQ(Millimetres(181.4), "3,2 mm");
    EXPECT_EQ(Millimetres(0.1), "0,1 mm");
    EXPECT_EQ(Decimal(2.125, 2), "2,12");
    EXPECT_EQ(ShortDecimal(304.8), "304,8");
    EXPECT_EQ(ShortDecimal(210.04), "210");
    EXPECT_EQ(Decimal(std::numeric_limits<double>::max(), 2).size(), 312U);
}

TEST(WordingTest, SentencesBeginWithACapital) {
    EXPECT_EQ(Capital("het bedrag"), "Het bedrag");
    EXPECT_EQ(Capital("één"), "Één");
    EXPECT_EQ(Capital(""), "");
}

TEST(WordingTest, PlacesHaveNames) {
    EXPECT_EQ(PlaceName(1), "bovenste formulier");
    EXPECT_EQ(PlaceName(2), "middelste formulier");
    EXPECT_EQ(PlaceName(3), "onderste formulier");
    EXPECT_EQ(PlaceName(4), "formulier onder de brief");
}

TEST(WordingTest, AnExactNumberHasAllItsFigures) {
    EXPECT_EQ(ExactDecimal(10), "10");
    EXPECT_EQ(ExactDecimal(10.04), "10,04");
    EXPECT_EQ(ExactDecimal(0.1), "0,1");
    EXPECT_EQ(ExactDecimal(1e300).size(), 301U);
}

} // namespace precheck
