#include "precheck/LetterMeasures.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "memory/MemoryFonts.h"

namespace precheck {

/// Counts what is asked of each letter.
class CountedFonts final : public machine::Fonts {
  public:
    std::map<char32_t, int> Asked;
    memory::MemoryFonts Real;

    std::string FamilyFor(const std::string& name) override { return Real.FamilyFor(name); }
    bool HasLetter(const machine::FontSpec& font, char32_t letter) override {
        return Real.HasLetter(font, letter);
    }
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return Real.MeasureText(text, font);
    }
    machine::InkBox InkOf(char32_t letter, const machine::FontSpec& font) override {
        ++Asked[letter];
        return Real.InkOf(letter, font);
    }
};

class LetterMeasuresTest : public testing::Test {
  protected:
    CountedFonts fonts;
    LetterMeasures measures{fonts};
    machine::FontSpec font{"Tahoma", 10, false}; // letters of 100 twips, lines of 240
};

TEST_F(LetterMeasuresTest, ATextIsAsWideAsItsLetters) {
    EXPECT_EQ(measures.Measure("één x", font).Width, 500);
    EXPECT_EQ(measures.Measure("één x", font).Height, 240);
    EXPECT_EQ(measures.Measure("", font).Width, 0);
    EXPECT_EQ(measures.Measure("", font).Height, 240);
}

TEST_F(LetterMeasuresTest, InkIsThatOfAllLettersAtTheirPlaces) {
    const TextInk ink = measures.InkOf(" ab ", font);
    EXPECT_TRUE(ink.HasInk);
    EXPECT_DOUBLE_EQ(ink.Box.Left, 110);
    EXPECT_DOUBLE_EQ(ink.Box.Top, 60);
    EXPECT_DOUBLE_EQ(ink.Box.Right, 290);
    EXPECT_DOUBLE_EQ(ink.Box.Bottom, 180);
}

TEST_F(LetterMeasuresTest, BlanksHaveNoInk) {
    EXPECT_FALSE(measures.InkOf("", font).HasInk);
    EXPECT_FALSE(measures.InkOf("   ", font).HasInk);
}

TEST_F(LetterMeasuresTest, FontsAreToldApartByNameSizeAndBoldness) {
    EXPECT_EQ(measures.Measure("a", font).Width, 100);
    EXPECT_EQ(measures.Measure("a", {"Tahoma", 20, false}).Width, 200);
    EXPECT_EQ(measures.Measure("a", {"Tahoma", 10, true}).Width, 110);
    EXPECT_EQ(measures.Measure("a", font).Width, 100);
}

TEST_F(LetterMeasuresTest, EachLetterIsAskedForOnce) {
    for (int i = 0; i < 3; ++i) {
        measures.InkOf("aaé€aé€", font);
        measures.Measure("aé€", font);
    }
    EXPECT_EQ(fonts.Asked, (std::map<char32_t, int>{{U'a', 1}, {U'é', 1}, {U'€', 1}}));
}

TEST_F(LetterMeasuresTest, LettersThatTheFontLacksAreKnownOnceEach) {
    fonts.Real.Describe("Tahoma", {.LacksLetters = "xé \n"});
    EXPECT_TRUE(measures.InkOf("axx", font).LacksLetters);
    EXPECT_FALSE(measures.InkOf("a b\n", font).LacksLetters); // nothing is drawn of a blank or a line feed
    EXPECT_EQ(measures.MissingLetters("xéxé ab\n", font), U"xé");
}

TEST_F(LetterMeasuresTest, AFontIsReplacedByAnotherName) {
    fonts.Real.Describe("OCR-B", {.PrintsInstead = "ocr b"});
    fonts.Real.Describe("OCRB", {.PrintsInstead = "Courier"});
    EXPECT_FALSE(IsReplaced(fonts, "Tahoma"));
    EXPECT_FALSE(IsReplaced(fonts, "OCR-B"));
    EXPECT_TRUE(IsReplaced(fonts, "OCRB"));
}

} // namespace precheck
