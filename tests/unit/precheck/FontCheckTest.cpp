#include "PrecheckTest.h"

namespace precheck {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class FontCheckTest : public PrecheckTest {
  protected:
    /// Widths of an OCR-B whose letters stand this far apart at 10 points.
    void DescribePitch(double millimetres) {
        memory.fonts.Describe(OcrFont, {.WidthPerPoint = ToTwips(millimetres) / 10});
    }
};

TEST_F(FontCheckTest, ThePitchMayDifferByTwoHundredths) {
    for (const double millimetres : {2.5201, 2.54, 2.5599}) {
        DescribePitch(millimetres);
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << millimetres;
    }
    for (const double millimetres : {2.5199, 2.5601}) {
        DescribePitch(millimetres);
        EXPECT_THAT(Codes(Settings()), ElementsAre("font.pitch")) << millimetres;
    }
}

TEST_F(FontCheckTest, EachFigureAndEachMarkCounts) {
    for (const char* letter : {"0", "5", "9", "+", "<", ">"}) {
        memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .WideLetters = letter});
        EXPECT_THAT(Codes(Settings()), ElementsAre("font.not-ocr-b")) << letter;
    }
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .WideLetters = "W"});
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(FontCheckTest, DigitsAreJudgedOfAFontWithTheRightPitchAlone) {
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .SlimLetters = "0"});
    EXPECT_THAT(Codes(Settings()), ElementsAre("font.digits"));
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .SlimLetters = "10"});
    EXPECT_THAT(Codes(Settings()), ElementsAre("font.digits"));
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 12, .SlimLetters = "10"});
    EXPECT_THAT(Codes(Settings()), ElementsAre("font.pitch"));
}

TEST_F(FontCheckTest, OfAFontThatIsNotThereItsMeasuresAreNotTold) {
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 12, .LacksLetters = "0", .PrintsInstead = "Courier"});
    EXPECT_THAT(Codes(All()), ElementsAre("font.replaced"));
}

TEST_F(FontCheckTest, BlanksAndHyphensMakeNoOtherFont) {
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .PrintsInstead = "ocr b"});
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(FontCheckTest, AFontThatTheStoreHasLostSinceTheStartIsStillPrinted) {
    Set("GMUFontName", "");
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(FontCheckTest, TheSizeIsTheNumberInFrontOfTheComma) {
    for (const char* size : {"10", "10,5", " 10", "10.0"}) {
        state.GMUFontSize = size;
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << size;
    }
    for (const auto& [setting, size] :
         {std::pair("9", "9"), std::pair("12,5", "12"), std::pair("10.5", "10,5"),
          std::pair("10.04", "10,04"), std::pair("9.96", "9,96")}) {
        state.GMUFontSize = setting;
        EXPECT_THAT(First(Settings(), "font.size").Wrong, HasSubstr("op " + std::string(size) + " punten"))
            << size;
    }
}

TEST_F(FontCheckTest, ALargerSizeTellsWhichFieldsMeet) {
    state.GMUFontSize = "12";
    EXPECT_THAT(
        First(Settings(), "font.size").Wrong,
        HasSubstr("; in de OCR-regel loopt dan het betalingskenmerk in het bedrag, het bedrag in de BIC, "
                  "de BIC in de rekening, de rekening in het einde van de OCR-regel."));
    state.GMUContractVorm = 2; // the line has no account
    EXPECT_THAT(First(Settings(), "font.size").Wrong, HasSubstr("het bedrag in de BIC."));
    state.GMUFontSize = "8";
    EXPECT_THAT(First(Settings(), "font.size").Wrong, Not(HasSubstr("loopt")));
}

TEST_F(FontCheckTest, WithoutAnOcrLineTheFontIsOnlyWorthALook) {
    DescribePitch(2);
    state.GMUContractVorm = 1;
    EXPECT_EQ(First(Settings(), "font.pitch").Gravity, Gravity::LookAt);
    state.AcceptgiroType = 2; // nothing of it stands on the form with a wide stub
    EXPECT_THAT(Codes(Settings()), ElementsAre("ocr.contract-a"));
    intent.Document = 3;
    EXPECT_EQ(First(Settings(), "font.pitch").Gravity, Gravity::LookAt);
}

} // namespace precheck
