#include "wizard/ToetsFilter.h"

#include <limits>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace wizard {
namespace {

std::int16_t Filtered(std::int16_t key, std::string_view kind) {
    return ToetsFilter(key, kind);
}

/// The codes of all 65536 that a kind lets through.
std::set<int> Passing(std::string_view kind) {
    std::set<int> passing;
    for (int key = std::numeric_limits<std::int16_t>::min(); key <= std::numeric_limits<std::int16_t>::max();
         ++key) {
        if (Filtered(static_cast<std::int16_t>(key), kind) != 0) {
            passing.insert(key);
        }
    }
    return passing;
}

std::set<int> Codes(std::string_view characters) {
    std::set<int> codes;
    for (const char c : characters) {
        codes.insert(static_cast<unsigned char>(c));
    }
    return codes;
}

TEST(ToetsFilterTest, TelephoneTakesASmallMButNoCapital) {
    EXPECT_EQ(Passing("TELEFOON"), Codes("\b0123456789 +-().m"));
    EXPECT_EQ(Filtered('m', "TELEFOON"), 'm');
    EXPECT_EQ(Filtered('M', "TELEFOON"), 0);
}

TEST(ToetsFilterTest, NumbersAndDatesTakeDigitsAndBackspaceAlone) {
    for (const char* kind : {"NUMERIEK", "NUMERIEK/VOLLEDIG", "DATUM", "DATUM/VOLLEDIG"}) {
        EXPECT_EQ(Passing(kind), Codes("\b0123456789")) << kind;
    }
    EXPECT_EQ(Filtered('-', "NUMERIEK"), 0);
    EXPECT_EQ(Filtered('/', "DATUM"), 0);
}

TEST(ToetsFilterTest, NumtekenTurnsACommaIntoAPoint) {
    EXPECT_EQ(Passing("NUMTEKEN"), Codes("\b0123456789.,"));
    EXPECT_EQ(Filtered(',', "NUMTEKEN"), '.');
    EXPECT_EQ(Filtered('.', "NUMTEKEN"), '.');
    EXPECT_EQ(Filtered('7', "NUMTEKEN"), '7');
}

TEST(ToetsFilterTest, AlphaTakesAccentsAndNoDigits) {
    std::set<int> expected = Codes("\b-' .ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    for (int code = 128; code < 256; ++code) {
        expected.insert(code);
    }
    EXPECT_EQ(Passing("ALPHA"), expected);
    EXPECT_EQ(Filtered(233, "ALPHA"), 233);
    EXPECT_EQ(Filtered('5', "ALPHA"), 0);
}

TEST(ToetsFilterTest, AnyOtherKindPassesEverything) {
    for (const char* kind : {"", "postcode", "NUMERIEK/ANDERS"}) {
        EXPECT_EQ(Passing(kind).size(), 65535U) << kind;
    }
    EXPECT_EQ(Filtered(-1, ""), -1);
    EXPECT_EQ(Filtered(8217, ""), 8217);
}

TEST(ToetsFilterTest, ComparesTheKindInCapitalsAndTrimmed) {
    EXPECT_EQ(Filtered('a', "numeriek"), 0);
    EXPECT_EQ(Filtered('a', "  NumerieK "), 0);
    EXPECT_EQ(Filtered('1', "numeriek"), '1');
}

TEST(ToetsFilterTest, LeavesItsArgumentAsItIs) {
    std::int16_t key = ',';
    ToetsFilter(key, "NUMTEKEN");
    EXPECT_EQ(key, ',');
}

} // namespace
} // namespace wizard
