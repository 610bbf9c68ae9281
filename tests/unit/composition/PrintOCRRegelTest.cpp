#include "composition/PrintOCRRegel.h"

#include "CompositionTest.h"

namespace composition {

using testing::ElementsAre;
using testing::IsEmpty;

class PrintOCRRegelTest : public CompositionTest {
  protected:
    static double Cm(double cm) { return cm * 567; }

    PrintOCRRegelTest() { printer.Drawing.Font = {"Tahoma", 7, false}; }

    void Draw(Twips corner = {}) { PrintOCRRegel(state, services, corner, values, positie, line); }
    void ExpectDrawn(const std::string& text, double x, double y, const std::string& font, double size) {
        const support::DrawnText drawn = Drawn(text);
        EXPECT_DOUBLE_EQ(drawn.x, x) << text;
        EXPECT_DOUBLE_EQ(drawn.y, y) << text;
        EXPECT_EQ(drawn.font, font) << text;
        EXPECT_EQ(drawn.size, size) << text;
    }

    payment::OcrValues values = {.kenmerk = "100000012010326",
                                 .euro = "123",
                                 .cent = "45",
                                 .rekening = "NL13ABNA0500000018",
                                 .bic = "ABNANL2A"};
    std::int16_t positie = 1;
    payment::OcrLine line;
};

TEST_F(PrintOCRRegelTest, ReferenceAndLine) {
    Draw();
    EXPECT_THAT(Words(),
                ElementsAre("7100 0000 1201 0326", "7100 0000", "1201 0326", "X", "7100000012010326+",
                            "000123457<", "ABNANL2A+", "NL13ABNA0500000018+", "17>"));
    ExpectDrawn("7100 0000 1201 0326", Cm(10), Cm(1.75), OcrFont, 12);
    ExpectDrawn("7100 0000", Cm(0.5), Cm(1.3), OcrFont, 9);
    ExpectDrawn("1201 0326", Cm(0.5), Cm(1.8), OcrFont, 9);
    const double y = 8.975 * 567;
    ExpectDrawn("X", Cm(3.2), y, OcrFont, 12);
    ExpectDrawn("7100000012010326+", Cm(4.45), y, OcrFont, 12);
    ExpectDrawn("000123457<", Cm(9.02), y, OcrFont, 12);
    ExpectDrawn("ABNANL2A+", Cm(11.82), y, OcrFont, 12);
    ExpectDrawn("NL13ABNA0500000018+", Cm(14.37), y, OcrFont, 12);
    ExpectDrawn("17>", Cm(19.48), y, OcrFont, 12);
    EXPECT_EQ(printer.Drawing.Font, (machine::FontSpec{"Tahoma", 7, false}));
    EXPECT_EQ(state.LineHeight, 24 * 9);
}

TEST_F(PrintOCRRegelTest, NothingWithoutPaymentTrafficOrUnderContractA) {
    for (const std::int16_t contract : Numbers{-1, 1}) {
        state.GMUContractVorm = contract;
        Draw();
    }
    state.GMUContractVorm = 32;
    state.GMUServiceNr = "12";
    state.GMUVerkeer = false;
    Draw();
    EXPECT_THAT(Words(), IsEmpty());
}

TEST_F(PrintOCRRegelTest, LineUnderEveryOtherContract) {
    for (const std::int16_t contract : Numbers{0, 31, 32, 33, 34}) {
        state.GMUContractVorm = contract;
        Texts().clear();
        Draw();
        EXPECT_EQ(Texts().size(), 9U) << contract;
    }
}

TEST_F(PrintOCRRegelTest, ContractBPrintsNoAccount) {
    state.GMUContractVorm = 2;
    Draw();
    EXPECT_THAT(Words(), ElementsAre("7100 0000 1201 0326", "7100 0000", "1201 0326", "X",
                                     "7100000012010326+", "000123457<", "ABNANL2A+", "17>"));
    EXPECT_DOUBLE_EQ(Drawn("17>").x, Cm(19.48));
}

TEST_F(PrintOCRRegelTest, EmptyFieldsMoveNoOther) {
    values.euro = values.cent = values.bic = {};
    Draw();
    EXPECT_THAT(Words(), ElementsAre("7100 0000 1201 0326", "7100 0000", "1201 0326", "X",
                                     "7100000012010326+", "NL13ABNA0500000018+", "17>"));
    EXPECT_DOUBLE_EQ(Drawn("NL13ABNA0500000018+").x, Cm(14.37));
    EXPECT_DOUBLE_EQ(Drawn("17>").x, Cm(19.48));
}

TEST_F(PrintOCRRegelTest, NothingWithoutAnOcrFont) {
    for (const std::string& font : {std::string(), std::string("\0", 1)}) {
        state.GMUFontName = font;
        Draw();
        EXPECT_THAT(Words(), IsEmpty());
        EXPECT_EQ(printer.Drawing.Font, (machine::FontSpec{"Tahoma", 7, false}));
    }
}

TEST_F(PrintOCRRegelTest, StoredNulIsNoCode) {
    state.GMUCode = std::string("\0", 1);
    Draw();
    EXPECT_EQ(state.GMUCode, "");
    state.GMUCode = "7";
    Draw();
    EXPECT_EQ(state.GMUCode, "7");
}

TEST_F(PrintOCRRegelTest, ServiceNumberUnderTheCertificate) {
    state.GMUContractVorm = 32;
    state.GMUServiceNr = " 123 ";
    state.AcceptGiroTop[0] = "1";
    Draw();
    ExpectDrawn(" 123 S", Cm(15.7), Cm(6.44) + 57, "Tahoma", 5);
    EXPECT_EQ(state.LineHeight, 24 * 5);
    for (const char* blank : {"", "  "}) {
        state.GMUServiceNr = blank;
        Texts().clear();
        Draw();
        EXPECT_EQ(Texts().size(), 9U);
    }
    state.GMUServiceNr = "123";
    state.GMUContractVorm = 31;
    Texts().clear();
    Draw();
    EXPECT_FALSE(IsDrawn("123S"));
}

TEST_F(PrintOCRRegelTest, FormAndLineAreCalibratedApart) {
    state.AcceptGiroTop[0] = "5";
    state.AcceptGiroLinks[0] = "10";
    Draw({.x = 100, .y = 1000});
    ExpectDrawn("7100 0000 1201 0326", Cm(10) + 667, Cm(1.75) + 1284, OcrFont,
                12); // 1283.5, to the even number
    ExpectDrawn("7100 0000", Cm(0.5) + 667, Cm(1.3) + 1284, OcrFont, 9);
    ExpectDrawn("X", Cm(3.2) + 100, 8.975 * 567 + 1000, OcrFont, 12);

    state.AcceptGiroTop[0] = state.AcceptGiroLinks[0] = "";
    state.OCRTop[0] = "5";
    state.OCRLinks[0] = "-10";
    Texts().clear();
    Draw({.x = 100, .y = 1000});
    ExpectDrawn("7100 0000 1201 0326", Cm(10) + 100, Cm(1.75) + 1000, OcrFont, 12);
    ExpectDrawn("X", Cm(3.2) - 467, 8.975 * 567 + 1284, OcrFont, 12);
    ExpectDrawn("17>", Cm(19.48) - 467, 8.975 * 567 + 1284, OcrFont, 12);
}

TEST_F(PrintOCRRegelTest, ReferenceIsCalibratedOnBothParts) {
    state.AcceptGiroBKAcceptLinks[0] = "1";
    state.AcceptGiroBKAcceptTop[0] = "2";
    state.AcceptGiroBKSoucheLinks[0] = "3";
    state.AcceptGiroBKSoucheTop[0] = "4";
    Draw();
    ExpectDrawn("7100 0000 1201 0326", Cm(10) + 57, Cm(1.75) + 113, OcrFont, 12);
    ExpectDrawn("7100 0000", Cm(0.5) + 170, Cm(1.3) + 227, OcrFont, 9);
    ExpectDrawn("1201 0326", Cm(0.5) + 170, Cm(1.8) + 227, OcrFont, 9);
    ExpectDrawn("X", Cm(3.2), 8.975 * 567, OcrFont, 12);
}

TEST_F(PrintOCRRegelTest, StubBeginsAtTheEdgeAtLeast) {
    Draw({.x = -400, .y = 0});
    EXPECT_EQ(Drawn("7100 0000").x, 0);
    EXPECT_EQ(Drawn("1201 0326").x, 0);
    EXPECT_DOUBLE_EQ(Drawn("X").x, Cm(3.2) - 400);
}

TEST_F(PrintOCRRegelTest, EachPlaceHasItsOwnCalibration) {
    state.OCRTop = {"10", "20", "30", "40"};
    state.AcceptGiroTop = {"10", "20", "30", "40", "50"};
    for (positie = 1; positie <= 4; ++positie) {
        Texts().clear();
        Draw();
        EXPECT_DOUBLE_EQ(Drawn("X").y, 8.975 * 567 + 567 * positie);
        EXPECT_DOUBLE_EQ(Drawn("7100 0000").y, Cm(1.3) + 567 * positie);
    }
}

TEST_F(PrintOCRRegelTest, UnderALetterTheFourthPlaceCountsAlsoForTheCaller) {
    state.AcceptgiroType = 3;
    state.OCRTop = {"10", "20", "30", "40"};
    positie = 2;
    Draw();
    EXPECT_EQ(positie, 4);
    EXPECT_DOUBLE_EQ(Drawn("X").y, 8.975 * 567 + 567 * 4);
}

TEST_F(PrintOCRRegelTest, PlaceWithoutSettingsIsAnError) {
    positie = 5; // the form has a fifth setting, the line has none
    EXPECT_THROW(Draw(), base::RuntimeError);
    EXPECT_THAT(Words(), ElementsAre("7100 0000 1201 0326", "7100 0000", "1201 0326"));
    for (const std::int16_t none : Numbers{0, -3, 6}) {
        positie = none;
        Texts().clear();
        EXPECT_THROW(Draw(), base::RuntimeError);
        EXPECT_THAT(Words(), IsEmpty());
    }
}

TEST_F(PrintOCRRegelTest, EurosBeyondAllNumbersAreAnError) {
    values.euro = "99999999999";
    EXPECT_THROW(Draw(), base::RuntimeError);
    EXPECT_THAT(Words(), IsEmpty());
}

TEST_F(PrintOCRRegelTest, PreviewMeasuresOnItsOwnPage) {
    host.OpenPreview(0);
    Draw();
    EXPECT_EQ(host.preview.canvas.texts.size(), 9U);
    EXPECT_EQ(state.LineHeight, 24 * 9);
    EXPECT_EQ(host.preview.Font(), "Tahoma");
    EXPECT_EQ(host.preview.FontSize(), 8);
}

} // namespace composition
