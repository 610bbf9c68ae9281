#include "base/Numbers.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace base {
namespace {

TEST(NumericValueTest, TakesTheLeadingNumber) {
    EXPECT_EQ(NumericValue("12"), 12);
    EXPECT_EQ(NumericValue("12a"), 12);
    EXPECT_EQ(NumericValue("   7"), 7);
    EXPECT_EQ(NumericValue("007"), 7);
    EXPECT_EQ(NumericValue("1.5"), 1.5);
    EXPECT_EQ(NumericValue(".25"), 0.25);
    EXPECT_EQ(NumericValue("3."), 3);
    EXPECT_EQ(NumericValue("-5"), -5);
    EXPECT_EQ(NumericValue("+5"), 5);
    EXPECT_EQ(NumericValue("0.1"), 0.1);
}

TEST(NumericValueTest, EndsAtWhateverIsNoPartOfIt) {
    EXPECT_EQ(NumericValue("12,5"), 12); // the point is the only decimal mark
    EXPECT_EQ(NumericValue("1 2"), 1);
    EXPECT_EQ(NumericValue("1.2.3"), 1.2);
    EXPECT_EQ(NumericValue("1e5"), 1);
    EXPECT_EQ(NumericValue("0x10"), 0);
    EXPECT_EQ(NumericValue("1-2"), 1);
    EXPECT_EQ(NumericValue(std::string_view("1\0"
                                            "2",
                                            3)),
              1);
}

TEST(NumericValueTest, IsZeroWithoutANumber) {
    for (const char* text :
         {"", " ", "-", "+", ".", "-.", "--5", "- 5", "abc", ",5", "inf", "nan", "\t5", "\xC3\xA9", "\xFF"}) {
        EXPECT_EQ(NumericValue(text), 0) << text;
    }
}

TEST(NumericValueTest, RoundsLongNumbersAsADoubleDoes) {
    EXPECT_EQ(NumericValue("123456789012345678"), 123456789012345678.0);
    EXPECT_EQ(NumericValue("0.1000000000000000055511151231257827"), 0.1);
    EXPECT_EQ(NumericValue("-9007199254740993"), -9007199254740992.0);
    EXPECT_EQ(NumericValue("00000000000000000000000000012"), 12);
}

TEST(NumericValueTest, StandsTextsOfAnyLength) {
    EXPECT_EQ(NumericValue(std::string(100000, '9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumericValue("-" + std::string(100000, '9')), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumericValue(std::string(100000, '0')), 0);
    EXPECT_EQ(NumericValue("0." + std::string(100000, '0') + "1"), 0);
    EXPECT_EQ(NumericValue(std::string(100000, ' ') + "4"), 4);
}

TEST(RoundTiesToEvenTest, SendsATieToTheEvenNumber) {
    EXPECT_EQ(RoundTiesToEven(0.5), 0);
    EXPECT_EQ(RoundTiesToEven(1.5), 2);
    EXPECT_EQ(RoundTiesToEven(2.5), 2);
    EXPECT_EQ(RoundTiesToEven(-0.5), 0);
    EXPECT_EQ(RoundTiesToEven(-1.5), -2);
    EXPECT_EQ(RoundTiesToEven(2.4999), 2);
    EXPECT_EQ(RoundTiesToEven(283.5), 284);
}

TEST(WholeNumbersTest, RoundAndKeepToTheirBounds) {
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768); // the tie goes to the even number, which fits
    EXPECT_THROW(ToInt16(32767.5), RuntimeError);
    EXPECT_THROW(ToInt16(-32769), RuntimeError);
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_THROW(ToInt32(2147483647.5), RuntimeError);
    EXPECT_THROW(ToInt32(std::nan("")), RuntimeError);
    EXPECT_THROW(ToInt32(std::numeric_limits<double>::infinity()), RuntimeError);
}

TEST(WholeNumbersTest, ComeFromTexts) {
    EXPECT_EQ(Int16OfText("31"), 31);
    EXPECT_EQ(Int16OfText("-1"), -1);
    EXPECT_EQ(Int16OfText("2.5"), 2);
    EXPECT_EQ(Int16OfText(""), 0);
    EXPECT_EQ(Int32OfText("30000 stuks"), 30000);
    try {
        Int16OfText("40000");
        FAIL() << "40000 does not fit into 16 bits";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorOverflow);
    }
    EXPECT_THROW(Int32OfText(std::string(100000, '9')), RuntimeError);
}

TEST(NumberTextTest, WritesWholeNumbersWithoutAPoint) {
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(-0.0), "0");
    EXPECT_EQ(NumberText(7), "7");
    EXPECT_EQ(NumberText(-32768), "-32768");
    EXPECT_EQ(NumberText(999999999999999.0), "999999999999999");
    EXPECT_EQ(NumberText(1e15), "1000000000000000");
    EXPECT_EQ(NumberText(1e20), "100000000000000000000");
    EXPECT_EQ(NumberText(1234567890123456.0), "1234567890123460"); // 15 digits are significant
}

TEST(NumberTextTest, WritesFractionsWithThePoint) {
    EXPECT_EQ(NumberText(0.5), "0.5");
    EXPECT_EQ(NumberText(-0.5), "-0.5");
    EXPECT_EQ(NumberText(56.7), "56.7");
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(0.00001), "0.00001");
    EXPECT_EQ(NumberText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(NumberText(100.0 / 3), "33.3333333333333");
    EXPECT_EQ(NumberText(0.9999999999999999), "1");
}

TEST(NumberTextTest, RefusesWhatIsNoNumber) {
    EXPECT_THROW(NumberText(std::nan("")), RuntimeError);
    EXPECT_THROW(NumberText(-std::numeric_limits<double>::infinity()), RuntimeError);
}

TEST(NumberTextTest, StandsTheLargestAndTheSmallest) {
    EXPECT_EQ(NumberText(std::numeric_limits<double>::max()).size(), 309U);
    EXPECT_EQ(NumberText(std::numeric_limits<double>::denorm_min()).substr(0, 4), "0.00");
}

} // namespace
} // namespace base
