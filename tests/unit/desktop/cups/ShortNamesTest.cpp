#include "desktop/cups/ShortNames.h"

#include <gmock/gmock.h>

namespace desktop::cups {
namespace {

using testing::ElementsAre;

TEST(ShortNamesTest, EndBetweenWordsAndAfterAWholeCharacter) {
    EXPECT_THAT(
        ShortNames({"Lade 1", "Multifunctionele lade links", std::string(30, 'b'),
                    "Handmatige invoer twee st",
                    "\xD0\x9B\xD0\xBE\xD1\x82\xD0\xBE\xD0\xBA\xD0\x9B"
                    "\xD0\xBE\xD1\x82\xD0\xBE\xD0\xBA"},
                   23),
        ElementsAre("Lade 1", "Multifunctionele lade", std::string(23, 'b'), "Handmatige invoer twee",
                    "\xD0\x9B\xD0\xBE\xD1\x82\xD0\xBE\xD0\xBA\xD0\x9B\xD0\xBE\xD1\x82\xD0\xBE\xD0\xBA"));
}

TEST(ShortNamesTest, ThatWouldBeTheSameKeepTheirLastWords) {
    EXPECT_THAT(ShortNames({"Tray 1 (Optional feeder left)", "Tray 1 (Optional feeder right)"}, 23),
                ElementsAre("\xE2\x80\xA6"
                            "feeder left)",
                            "\xE2\x80\xA6"
                            "feeder right)"));
}

TEST(WholeCharactersTest, LoseWhatIsNoCharacterAnyMore) {
    EXPECT_EQ(WholeCharacters("caf\xC3\xA9", 5), "caf\xC3\xA9");
    EXPECT_EQ(WholeCharacters("caf\xC3\xA9", 4), "caf");
    EXPECT_EQ(WholeCharacters("caf\xC3", 4), "caf");
    EXPECT_EQ(WholeCharacters("\xF0\x9F\x96\xA8", 3), "");
    EXPECT_EQ(WholeCharacters("", 3), "");
}

} // namespace
} // namespace desktop::cups
