#include "payment/TextRoutines.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "HostileTexts.h"

namespace payment {
namespace {

using namespace std::string_view_literals;

TEST(VerwijderTekenTest, TakesOutEveryEqualCharacter) {
    EXPECT_EQ(VerwijderTeken("1.2.3", "."), "123");
    EXPECT_EQ(VerwijderTeken("...", "."), "");
    EXPECT_EQ(VerwijderTeken("", "."), "");
    EXPECT_EQ(VerwijderTeken("aAa", "a"), "A");
    EXPECT_EQ(VerwijderTeken("één", "é"), "n");
    EXPECT_EQ(VerwijderTeken("a\0b"sv, "\0"sv), "ab");
}

TEST(VerwijderTekenTest, MatchesNothingWithAnythingButOneCharacter) {
    EXPECT_EQ(VerwijderTeken("a--b", "--"), "a--b");
    EXPECT_EQ(VerwijderTeken("a--b", ""), "a--b");
}

TEST(VerwijderTekenTest, LeavesPartsOfACharacterAlone) {
    EXPECT_EQ(VerwijderTeken("é\xA9", "\xA9"), "é"); // é ends in the byte A9
    EXPECT_EQ(VerwijderTeken("è", "é"), "è");
}

TEST(IsGetalTest, HoldsForANumberWrittenAsTheProgramWritesIt) {
    for (const char* text : {"0", "7", "10", "12345678", "-5", "1.5", "0.5", "-0.5", "1000000000000000"}) {
        EXPECT_TRUE(IsGetal(text)) << text;
    }
}

TEST(IsGetalTest, FailsForAllElse) {
    for (const char* text : {"", " ", "007", "12a", "P1234", "1.", ".5", "1.50", "1,5", "+5", "-0", "-", " 5",
                             "5 ", "1e5", "1234567890123456", "١"}) {
        EXPECT_FALSE(IsGetal(text)) << text;
    }
    EXPECT_FALSE(IsGetal("5\0"sv));
}

TEST(PostcodeFormaatTest, PutsTheBlankBetweenFiguresAndLetters) {
    const auto format = [](std::string text) { return PostcodeFormaat(text); };
    EXPECT_EQ(format("1234AB"), "1234 AB");
    EXPECT_EQ(format("1234 AB"), "1234 AB");
    EXPECT_EQ(format(" 1 2 3 4 A B "), "1234 AB");
    EXPECT_EQ(format("1234éb"), "1234 éb");
    EXPECT_EQ(format("123456"), "1234 56");
}

TEST(PostcodeFormaatTest, LeavesWhatIsNoPostcodeButForItsBlanks) {
    const auto format = [](std::string text) { return PostcodeFormaat(text); };
    EXPECT_EQ(format("0123AB"), "0123AB");
    EXPECT_EQ(format("A234BC"), "A234BC");
    EXPECT_EQ(format("B - 1000"), "B-1000");
    EXPECT_EQ(format("1234 ABC"), "1234ABC");
    EXPECT_EQ(format(""), "");
    EXPECT_EQ(format("   "), "");
}

TEST(PostcodeFormaatTest, TakesTheBlanksOutOfTheCallersText) {
    std::string postcode = " 1234 AB ";
    EXPECT_EQ(PostcodeFormaat(postcode), "1234 AB");
    EXPECT_EQ(postcode, "1234AB");
}

TEST(TextRoutinesTest, StandHostileTexts) {
    for (const std::string& text : HostileTexts()) {
        EXPECT_EQ(VerwijderTeken(VerwijderTeken(text, "-"), "-"), VerwijderTeken(text, "-"));
        EXPECT_FALSE(IsGetal(text));
        std::string postcode = text;
        EXPECT_EQ(PostcodeFormaat(postcode), postcode);
        EXPECT_EQ(std::count(postcode.begin(), postcode.end(), ' '), 0);
    }
}

} // namespace
} // namespace payment
