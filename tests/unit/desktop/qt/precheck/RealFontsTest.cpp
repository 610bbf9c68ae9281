#include "desktop/qt/QtPrintFonts.h"
#include "unit/precheck/PrecheckTest.h"

namespace precheck {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class RealFontsTest : public PrecheckTest {
  protected:
    RealFontsTest() : PrecheckTest(&fonts_) {}

    void TakeFont(const std::string& name) {
        state.GMUFontName = name;
        Set("GMUFontName", name);
    }

  private:
    desktop::qt::QtPrintFonts fonts_;
};

TEST_F(RealFontsTest, NothingIsWrongOnAnyStationeryUnderAnyContract) {
    intent = {.Forms = 250, .FormsAskedFor = 250};
    for (const std::int16_t type : Numbers{1, 2, 3}) {
        for (const std::int16_t contract : Numbers{2, 31, 32, 33, 34}) {
            for (const std::int16_t document : Numbers{1, 2, 3}) {
                state.AcceptgiroType = type;
                state.GMUContractVorm = contract;
                intent.Document = document;
                printer.Sheet = Sheet(210, type == 3 ? 297 : 304.8);
                EXPECT_THAT(All(), IsEmpty()) << type << ' ' << contract << ' ' << document;
            }
        }
    }
}

TEST_F(RealFontsTest, OnA4TheLastOcrLineIsOff) {
    printer.Sheet = Sheet(210, 297);
    const Findings findings = Document();
    ASSERT_THAT(Codes(findings), ElementsAre("sheet.text-off"));
    EXPECT_THAT(findings[0].Texts, SizeIs(6));
    EXPECT_THAT(findings[0].Texts, Each(Field(&WrongPlace::Name, AllOf(HasSubstr("OCR-regel"),
                                                                       HasSubstr("onderste formulier")))));
}

TEST_F(RealFontsTest, AtTwelvePointsTheFieldsOfTheLineMeet) {
    state.GMUFontSize = "12";
    EXPECT_THAT(First(Document(), "sheet.texts-overlap").Texts, SizeIs(4));
    EXPECT_THAT(First(Settings(), "font.size").Wrong, HasSubstr("het betalingskenmerk in het bedrag"));
}

TEST_F(RealFontsTest, OtherFontsAreNoOcrB) {
    TakeFont("DejaVu Sans");
    EXPECT_THAT(Codes(Settings()), ElementsAre("font.not-ocr-b"));
    TakeFont("DejaVu Sans Mono");
    EXPECT_THAT(First(Settings(), "font.pitch").Wrong, HasSubstr("2,12 mm"));
    TakeFont("No such font 42");
    EXPECT_THAT(Codes(Settings()), ElementsAre("font.replaced"));
}

TEST_F(RealFontsTest, EveryOcrBIsTaken) {
    for (const char* name : {"OCR B", "OCR-B", "OCR B S", "OCR B F"}) {
        TakeFont(name);
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << name;
    }
}

TEST_F(RealFontsTest, OcrAIsToldByItsDigits) {
    for (const char* name : {"OCRA", "OCRABold", "OCRAItalic"}) {
        TakeFont(name);
        const std::vector<std::string> codes = Codes(Settings());
        if (codes == std::vector<std::string>{"font.replaced"}) {
            GTEST_SKIP() << name << " is not installed";
        }
        EXPECT_THAT(codes, ElementsAre("font.digits")) << name;
    }
    EXPECT_EQ(First(Settings(), "font.digits").Gravity, Gravity::LookAt);
}

TEST_F(RealFontsTest, WhiteOnBlackIsWorthALook) {
    TakeFont("OCR B X");
    EXPECT_THAT(Codes(Settings()), ElementsAre("font.digits"));
}

TEST_F(RealFontsTest, LettersThatTahomaLacksAreTold) {
    state.IncassantBegunstigde = "Café 漢字";
    EXPECT_THAT(First(Settings(), "creditor.letters").Wrong, HasSubstr("afgedrukt: 漢 字."));
}

} // namespace precheck
