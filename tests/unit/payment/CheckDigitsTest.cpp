#include "payment/CheckDigits.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "HostileTexts.h"

namespace payment {
namespace {

std::string Kenmerk(std::string text) {
    return KenmerkControle(text);
}
std::string Bedrag(std::string text) {
    return BedragControle(text);
}

TEST(NulVullingTest, FillsWithZeros) {
    EXPECT_EQ(NulVulling(5, 2), "05");
    EXPECT_EQ(NulVulling(0, 8), "00000000");
    EXPECT_EQ(NulVulling(12, 2), "12");
    EXPECT_EQ(NulVulling(7, 30), std::string(29, '0') + "7");
}

TEST(NulVullingTest, LosesTheRightmostDigitsOfALongValue) {
    EXPECT_EQ(NulVulling(123, 2), "12");
    EXPECT_EQ(NulVulling(1234567, 6), "123456");
    EXPECT_EQ(NulVulling(std::numeric_limits<std::int32_t>::min(), 3), "-21");
}

TEST(NulVullingTest, KeepsTheMinusSignBehindTheZeros) {
    EXPECT_EQ(NulVulling(-5, 4), "00-5");
    EXPECT_EQ(NulVulling(std::numeric_limits<std::int32_t>::min(), 12), "0-2147483648");
}

TEST(NulVullingTest, IsEmptyWithoutAWidth) {
    EXPECT_EQ(NulVulling(5, 0), "");
    EXPECT_EQ(NulVulling(5, -1), "");
    EXPECT_EQ(NulVulling(5, std::numeric_limits<std::int16_t>::min()), "");
    EXPECT_EQ(NulVulling(5, std::numeric_limits<std::int16_t>::max()).size(), 32767U);
}

TEST(KenmerkControleTest, GivesTheDigitOfThePrintedForm) {
    EXPECT_EQ(Kenmerk("100000012010326"), "7"); // the weighted sum is 81
}

TEST(KenmerkControleTest, WeighsEachPlace) {
    // One digit 1 at a time, from the rightmost place to the left; what weight w gives is 11 - w, with 10
    // as 1.
    const std::string expected = "973612485197361";
    for (std::size_t place = 0; place < 15; ++place) {
        std::string digits(15, '0');
        digits[14 - place] = '1';
        EXPECT_EQ(Kenmerk(digits), expected.substr(place, 1)) << place;
    }
}

TEST(BedragControleTest, GivesTheDigitOfThePrintedForm) {
    EXPECT_EQ(Bedrag("00012345"), "7");
}

TEST(BedragControleTest, TakesEightDigitsOnly) {
    EXPECT_EQ(Bedrag("99900012345"), Bedrag("00012345"));
    EXPECT_NE(Kenmerk("99900012345"), Kenmerk("00012345"));
    EXPECT_EQ(Kenmerk("9100000012010326"), "7");
}

TEST(CheckDigitTest, MapsTenToOneAndElevenToZero) {
    EXPECT_EQ(Bedrag("00000000"), "0"); // remainder 0
    EXPECT_EQ(Kenmerk(""), "0");
    EXPECT_EQ(Bedrag("1000000000"), "0");
    EXPECT_EQ(Bedrag("14"), "1");      // 4 x 2 + 1 x 4 is 12, remainder 1
    EXPECT_EQ(Bedrag("1000003"), "9"); // 3 x 2 + 1 x 7 is 13, remainder 2
    EXPECT_EQ(Bedrag("32"), "6");      // 2 x 2 + 3 x 4 is 16, remainder 5
}

TEST(CheckDigitTest, CountsWhatIsNoDigitAsZero) {
    EXPECT_EQ(Bedrag("0001a345"), Bedrag("00010345"));
    EXPECT_EQ(Bedrag("0001é345"), Bedrag("00010345"));
    EXPECT_EQ(Bedrag("0001\xFF"
                     "345"),
              Bedrag("00010345"));
    EXPECT_EQ(Bedrag("-5"), Bedrag("05"));
}

TEST(CheckDigitTest, TrimsTheCallersText) {
    std::string reference = "  100000012010326 ";
    EXPECT_EQ(KenmerkControle(reference), "7");
    EXPECT_EQ(reference, "100000012010326");
    std::string amount = " 000 12345  ";
    BedragControle(amount);
    EXPECT_EQ(amount, "000 12345");
    std::string blanks = "    ";
    EXPECT_EQ(BedragControle(blanks), "0");
    EXPECT_EQ(blanks, "");
}

TEST(CheckDigitTest, StandsHostileTexts) {
    for (const std::string& text : HostileTexts()) {
        for (const std::string& digit : {Kenmerk(text), Bedrag(text)}) {
            ASSERT_EQ(digit.size(), 1U);
            EXPECT_TRUE(digit[0] >= '0' && digit[0] <= '9');
        }
    }
}

} // namespace
} // namespace payment
