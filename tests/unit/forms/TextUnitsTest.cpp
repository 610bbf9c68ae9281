#include "forms/TextUnits.h"

#include <gtest/gtest.h>

namespace {

using forms::TextDifference;
using namespace std::literals;

// A face of two units stands between letters of one.
constexpr std::u16string_view Faces = u"a\U0001F600b\U0001F601";

TEST(TextUnitsTest, ACharacterOutsideTheBasicPlaneTakesTwoUnits) {
    EXPECT_EQ(forms::CharactersIn(Faces, 0), 0);
    EXPECT_EQ(forms::CharactersIn(Faces, 1), 1);
    EXPECT_EQ(forms::CharactersIn(Faces, 3), 2);
    EXPECT_EQ(forms::CharactersIn(Faces, 6), 4);
    EXPECT_EQ(forms::UnitsOf(Faces, 0), 0);
    EXPECT_EQ(forms::UnitsOf(Faces, 2), 3);
    EXPECT_EQ(forms::UnitsOf(Faces, 3), 4);
    EXPECT_EQ(forms::UnitsOf(Faces, 4), 6);
}

TEST(TextUnitsTest, NothingIsCountedBeyondTheEnd) {
    EXPECT_EQ(forms::CharactersIn(Faces, 99), 4);
    EXPECT_EQ(forms::UnitsOf(Faces, 99), 6);
    EXPECT_EQ(forms::CharactersIn(u""sv, 1), 0);
    EXPECT_EQ(forms::UnitsOf(u""sv, 1), 0);
}

TEST(TextUnitsTest, HalfACharacterCountsAsOne) {
    const std::u16string halves{u'\xDE00', u'a', u'\xD83D'};
    EXPECT_EQ(forms::CharactersIn(std::u16string_view(halves), 3), 3);
    EXPECT_EQ(forms::UnitsOf(std::u16string_view(halves), 3), 3);
    EXPECT_EQ(forms::CharactersIn(Faces, 2), 2) << "within a character";
}

TEST(TextUnitsTest, TheTypeOfAUnitIsTheToolkits) {
    EXPECT_EQ(forms::CharactersIn(L"abc"sv, 2), 2);
    EXPECT_EQ(forms::DifferenceOf(L"abc"sv, L"abd"sv), (TextDifference{2, 1, 1}));
}

TEST(TextDifferenceTest, IsWhatStandsBetweenTheSameBeginningAndTheSameEnd) {
    EXPECT_EQ(forms::DifferenceOf(u"Gronigen"sv, u"Groningen"sv), (TextDifference{5, 0, 1}));
    EXPECT_EQ(forms::DifferenceOf(u"Groningen"sv, u"Gronigen"sv), (TextDifference{5, 1, 0}));
    EXPECT_EQ(forms::DifferenceOf(u"1.50"sv, u"1,75"sv), (TextDifference{1, 3, 3}));
    EXPECT_EQ(forms::DifferenceOf(u"12"sv, u"102"sv), (TextDifference{1, 0, 1}));
}

TEST(TextDifferenceTest, OfTheSameTextsIsNothing) {
    EXPECT_EQ(forms::DifferenceOf(u"Assen"sv, u"Assen"sv), (TextDifference{5, 0, 0}));
    EXPECT_EQ(forms::DifferenceOf(u""sv, u""sv), TextDifference{});
}

TEST(TextDifferenceTest, OfTextsThatHaveNothingInCommonIsAll) {
    EXPECT_EQ(forms::DifferenceOf(u"abc"sv, u"12"sv), (TextDifference{0, 3, 2}));
    EXPECT_EQ(forms::DifferenceOf(u""sv, u"12"sv), (TextDifference{0, 0, 2}));
    EXPECT_EQ(forms::DifferenceOf(u"12"sv, u""sv), (TextDifference{0, 2, 0}));
}

TEST(TextDifferenceTest, ARepeatedLetterCountsOnce) {
    EXPECT_EQ(forms::DifferenceOf(u"aa"sv, u"aaa"sv), (TextDifference{2, 0, 1}));
    EXPECT_EQ(forms::DifferenceOf(u"aaa"sv, u"aa"sv), (TextDifference{2, 1, 0}));
}

} // namespace
