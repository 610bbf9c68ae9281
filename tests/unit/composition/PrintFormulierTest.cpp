#include "composition/PrintFormulier.h"

#include "CompositionTest.h"
#include "composition/PrinterMeasures.h"

namespace composition {

using testing::ElementsAre;

class PrintFormulierTest : public CompositionTest {
  protected:
    static double Cm(double cm) { return cm * 567; }

    void Draw(Twips corner = {}, std::int16_t positie = 1) {
        PrintFormulier(state, services, state.AcceptgiroType != 2, corner, tekst, positie);
    }
    void SetSize(const char* name, const std::string& value) {
        memory.registry.SetText(SettingsPath, name, value);
    }
    void ExpectDrawn(const std::string& text, double x, double y, const std::string& font, double size,
                     int nth = 1) {
        const support::DrawnText drawn = Drawn(text, nth);
        EXPECT_DOUBLE_EQ(drawn.x, x) << text;
        EXPECT_DOUBLE_EQ(drawn.y, y) << text;
        EXPECT_EQ(drawn.font, font) << text;
        EXPECT_EQ(drawn.size, size) << text;
        EXPECT_FALSE(drawn.bold) << text;
    }

    FormulierTekst tekst = {.omschrijving1 = "DRUKKEURING",
                            .omschrijving2 = {},
                            .euro = "123",
                            .cent = "45",
                            .rekening = "NL68TEST0123456789",
                            .regel0 = {},
                            .naam = "Dhr. A. Voorbeeld e/o",
                            .partner = "Mevr. B. Proef",
                            .regel3 = {},
                            .adres = "Proefweg 1",
                            .plaats = "9900 AA  TESTDAM"};
};

TEST_F(PrintFormulierTest, NarrowLayout) {
    Draw();
    EXPECT_THAT(Words(),
                ElementsAre("123", "45", "DRUKKEURING ", "123", "45", "NL68TEST0123456789",
                            "Dhr. A. Voorbeeld e/o", "Mevr. B. Proef", "Proefweg 1", "9900 AA  TESTDAM"));
    ExpectDrawn("123", Cm(2.1) - 270, Cm(3), "Tahoma", 9);
    ExpectDrawn("45", Cm(3.2) - 180, Cm(3), "Tahoma", 9);
    ExpectDrawn("DRUKKEURING ", Cm(10.3), Cm(0.8), "Tahoma", 9);
    ExpectDrawn("123", Cm(6.9) - 360, Cm(1.75), OcrFont, 12, 2);
    ExpectDrawn("45", Cm(8.1), Cm(1.75), OcrFont, 12, 2);
    ExpectDrawn("NL68TEST0123456789", Cm(4.5), Cm(3), OcrFont, 12);
    ExpectDrawn("Dhr. A. Voorbeeld e/o", Cm(6.5), Cm(4), "Tahoma", 10);
    ExpectDrawn("Mevr. B. Proef", Cm(6.5), Cm(4) + 240, "Tahoma", 10);
    ExpectDrawn("Proefweg 1", Cm(6.5), Cm(4) + 480, "Tahoma", 10);
    ExpectDrawn("9900 AA  TESTDAM", Cm(6.5), Cm(4) + 720, "Tahoma", 10);
}

TEST_F(PrintFormulierTest, WideLayout) {
    state.AcceptgiroType = 2;
    tekst.regel3 = "unused";
    SetSize("AcceptFontSizeNAW1", "20");
    SetSize("AcceptFontSizeNAW2", "20");
    Draw();
    EXPECT_THAT(Words(), ElementsAre("123", "45", "DRUKKEURING ", "123", "45", "NL68TEST0123456789",
                                     "Dhr. A. Voorbeeld e/o", "Proefweg 1", "9900 AA  TESTDAM"));
    ExpectDrawn("123", Cm(3) - 270, Cm(3), "Tahoma", 9);
    ExpectDrawn("45", Cm(4.2) - 180, Cm(3), "Tahoma", 9);
    ExpectDrawn("DRUKKEURING ", Cm(11), Cm(1), "Tahoma", 9);
    ExpectDrawn("123", Cm(8.2) - 330, Cm(1.75), "Tahoma", 11, 2);
    ExpectDrawn("45", Cm(10) - 220, Cm(1.75), "Tahoma", 11, 2);
    ExpectDrawn("NL68TEST0123456789", Cm(8.5) - 18 * 110, Cm(3), "Tahoma", 11);
    const double name = Cm(4) + 216 * 1.1; // one line of size 9, also with nothing on it
    ExpectDrawn("Dhr. A. Voorbeeld e/o", Cm(7.5), name, "Tahoma", 10);
    ExpectDrawn("Proefweg 1", Cm(7.5), name + 240, "Tahoma", 10);
    ExpectDrawn("9900 AA  TESTDAM", Cm(7.5), name + 480, "Tahoma", 10);
}

TEST_F(PrintFormulierTest, DescriptionStandsInThePlaceOfTheReference) {
    tekst.omschrijving2 = "tweede";
    for (const std::int16_t type : Numbers{1, 2, 3}) {
        state.AcceptgiroType = type;
        state.GMUVerkeer = true;
        Texts().clear();
        Draw();
        EXPECT_FALSE(IsDrawn("DRUKKEURING"));
        EXPECT_TRUE(IsDrawn("DRUKKEURING tweede"));
        state.GMUVerkeer = false;
        Texts().clear();
        Draw();
        ExpectDrawn("DRUKKEURING", Cm(0.5), Cm(1.3), "Tahoma", 9);
        ExpectDrawn("tweede", Cm(0.5), Cm(1.8), "Tahoma", 9);
    }
}

TEST_F(PrintFormulierTest, DescriptionIsCutToTheNarrowStub) {
    state.GMUVerkeer = false;
    tekst.omschrijving1 = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    // From 0.5 cm (283.5, so 284) to 3.7 cm (2097.9, so 2098) there is room for 1814 twips: 20 characters
    // of 90.
    Draw();
    ExpectDrawn("ABCDEFGHIJKLMNOPQRST", Cm(0.5), Cm(1.3), "Tahoma", 9);

    // Left of the paper's printable area it begins at 0, and is cut for the room from there.
    Texts().clear();
    Draw({.x = -300, .y = 0});
    ExpectDrawn("ABCDEFGHIJKLMNOPQRS", 0, Cm(1.3), "Tahoma", 9); // up to 1797.9, so 1798
    state.AcceptgiroType = 2;
    Texts().clear();
    Draw({.x = -300, .y = 0});
    ExpectDrawn("ABCDEFGHIJKLMNOPQRSTUVWXYZ", 0, Cm(1.3), "Tahoma", 9);
}

TEST_F(PrintFormulierTest, FormWithoutAnAccount) {
    Draw();
    const std::size_t all = Texts().size();
    Texts().clear();
    tekst.rekening = {};
    Draw();
    EXPECT_EQ(Texts().size(), all - 1);
    ExpectDrawn("45", Cm(8.1), Cm(1.75), OcrFont, 12, 2);
    ExpectDrawn("Dhr. A. Voorbeeld e/o", Cm(6.5), Cm(4), "Tahoma", 10);
}

TEST_F(PrintFormulierTest, LineAboveTheNameMovesThePayerDown) {
    tekst.regel0 = "Aan";
    Draw();
    ExpectDrawn("Aan", Cm(6.5), Cm(4), "Tahoma", 9);
    ExpectDrawn("Dhr. A. Voorbeeld e/o", Cm(6.5), Cm(4) + 216 * 1.1, "Tahoma", 10);
}

TEST_F(PrintFormulierTest, ThirdLineAndNoPartner) {
    tekst.partner = {};
    tekst.regel3 = "t.a.v. de Proef";
    Draw();
    ExpectDrawn("t.a.v. de Proef", Cm(6.5), Cm(4) + 240, "Tahoma", 10);
    ExpectDrawn("Proefweg 1", Cm(6.5), Cm(4) + 480, "Tahoma", 10);
}

TEST_F(PrintFormulierTest, EmptyPayerKeepsItsLines) {
    tekst.naam = tekst.partner = tekst.adres = {};
    tekst.plaats = "  ";
    Draw();
    ExpectDrawn("  ", Cm(6.5), Cm(4) + 480, "Tahoma", 10); // a text of blanks is a text
}

TEST_F(PrintFormulierTest, SizesOfThePayerAreSettings) {
    struct Row {
        std::string above, name;
        double expectedAbove, expectedName;
    };
    const Row rows[] = {
        {"", "", 9, 10},
        {"0", "0", 9, 10},
        {"abc", "abc", 9, 10},
        {"7", "14", 7, 14},
        {"8,5", "8.5", 8, 8.5},
        {std::string("1\0"
                     "1",
                     3),
         std::string("\0"
                     "6\0",
                     3),
         11, 6},
        {",5", "00", 9, 10},
    };
    tekst.regel0 = "Aan";
    for (const Row& row : rows) {
        SetSize("AcceptFontSizeNAW1", row.above);
        SetSize("AcceptFontSizeNAW2", row.name);
        Texts().clear();
        Draw();
        EXPECT_EQ(Drawn("Aan").size, row.expectedAbove) << row.above;
        EXPECT_EQ(Drawn("Proefweg 1").size, row.expectedName) << row.name;
    }
}

TEST_F(PrintFormulierTest, SizesAreReadForEachForm) {
    Draw();
    EXPECT_EQ(Drawn("Proefweg 1").size, 10);
    SetSize("AcceptFontSizeNAW2", "7");
    Draw();
    EXPECT_EQ(Drawn("Proefweg 1", 2).size, 7);
}

TEST_F(PrintFormulierTest, ImpossibleSizeStillPrintsThePayer) {
    for (const char* size : {"-4", "99999999999999999999", "-0.5"}) {
        SetSize("AcceptFontSizeNAW2", size);
        Texts().clear();
        Draw();
        EXPECT_EQ(Drawn("Proefweg 1").size, 9) << size; // that of the line above
    }
    state.GMUFontSize = "-1";
    Texts().clear();
    Draw();
    EXPECT_EQ(Drawn("NL68TEST0123456789").size, 9);
}

TEST_F(PrintFormulierTest, SizeWithADecimalCommaIsItsWholePart) {
    state.GMUFontSize = "12,5";
    Draw();
    EXPECT_EQ(Drawn("NL68TEST0123456789").size, 12);
}

TEST_F(PrintFormulierTest, CalibrationOfTheFormMovesEverything) {
    state.AcceptGiroTop[0] = "5";
    state.AcceptGiroLinks[0] = "-1,00";
    Draw();
    ExpectDrawn("DRUKKEURING ", Cm(10.3) - 57, Cm(0.8) + 284, "Tahoma", 9);
    ExpectDrawn("Proefweg 1", Cm(6.5) - 57, Cm(4) + 284 + 480, "Tahoma", 10);
}

TEST_F(PrintFormulierTest, CalibrationIsAddedToTheCornerBeforeRounding) {
    state.AcceptGiroTop[1] = "5";
    Draw({.x = 0, .y = 11227}, 2);
    ExpectDrawn("DRUKKEURING ", Cm(10.3), Cm(0.8) + 11510, "Tahoma", 9);
}

TEST_F(PrintFormulierTest, CalibrationOfThePayerMovesThePayerAlone) {
    state.AcceptGiroNAWTop[0] = "2";
    state.AcceptGiroNAWLinks[0] = "3";
    Draw();
    ExpectDrawn("DRUKKEURING ", Cm(10.3), Cm(0.8), "Tahoma", 9);
    ExpectDrawn("Dhr. A. Voorbeeld e/o", Cm(6.5) + 170, Cm(4) + 113, "Tahoma", 10);
    ExpectDrawn("9900 AA  TESTDAM", Cm(6.5) + 170, Cm(4) + 113 + 720, "Tahoma", 10);
    state.AcceptgiroType = 2;
    Texts().clear();
    Draw();
    ExpectDrawn("Dhr. A. Voorbeeld e/o", Cm(7.5) + 170, Cm(4) + 113 + 216 * 1.1, "Tahoma", 10);
}

TEST_F(PrintFormulierTest, EachPlaceHasItsOwnCalibration) {
    state.AcceptGiroTop = {"10", "20", "30", "40", "50"};
    state.AcceptGiroNAWLinks = {"10", "20", "30", "40", "50"};
    for (const std::int16_t positie : Numbers{1, 2, 3}) {
        Texts().clear();
        Draw({}, positie);
        EXPECT_DOUBLE_EQ(Drawn("DRUKKEURING ").y, Cm(0.8) + 567 * positie);
        EXPECT_DOUBLE_EQ(Drawn("Proefweg 1").x, Cm(6.5) + 567 * positie);
    }
    state.AcceptgiroType = 3;
    for (const std::int16_t positie : Numbers{1, 2, 3}) {
        Texts().clear();
        Draw({}, positie);
        EXPECT_DOUBLE_EQ(Drawn("DRUKKEURING ").y, Cm(0.8) + 567 * 4);
        EXPECT_DOUBLE_EQ(Drawn("Proefweg 1").x, Cm(6.5) + 567 * 4);
    }
}

TEST_F(PrintFormulierTest, PlaceWithoutSettingsIsAnError) {
    for (const std::int16_t positie : Numbers{-1, 0, 6}) {
        EXPECT_THROW(Draw({}, positie), base::RuntimeError);
    }
}

TEST_F(PrintFormulierTest, HostileCalibrationMovesNothingOrOffThePage) {
    for (const char* waarde : {"", "x", "1,2,3", "99999999999999", "-99999999999999"}) {
        state.AcceptGiroTop.fill(waarde);
        state.AcceptGiroLinks.fill(waarde);
        state.AcceptGiroNAWLinks.fill(waarde);
        state.AcceptGiroNAWTop.fill(waarde);
        Texts().clear();
        Draw();
        ExpectDrawn("Proefweg 1", Cm(6.5), Cm(4) + 480, "Tahoma", 10);
    }
    state.AcceptGiroLinks.fill("37000000"); // fits a whole number of twips, and no sheet
    state.AcceptGiroNAWLinks.fill("37000000");
    Texts().clear();
    Draw();
    EXPECT_DOUBLE_EQ(Drawn("Proefweg 1").x, Cm(6.5) + 2 * 2097900000.0);
}

TEST_F(PrintFormulierTest, LineHeightsComeFromThePrinterAlsoInAPreview) {
    tekst.regel0 = "Aan";
    host.OpenPreview(0);
    Draw();
    const std::vector<support::DrawnText>& drawn = host.preview.canvas.texts;
    ASSERT_EQ(drawn.size(), 11U);
    EXPECT_EQ(drawn[7].text, "Dhr. A. Voorbeeld e/o");
    EXPECT_DOUBLE_EQ(drawn[7].y, Cm(4) + 192 * 1.1); // the printer's own font at size 8
    EXPECT_EQ(state.LineHeight, 192);
    EXPECT_TRUE(Texts().empty());
}

TEST_F(PrintFormulierTest, WideStubMeasuresOnTheSurfaceAlsoInAPreview) {
    state.AcceptgiroType = 2;
    host.OpenPreview(0);
    Draw();
    const std::vector<support::DrawnText>& drawn = host.preview.canvas.texts;
    ASSERT_EQ(drawn.size(), 9U);
    EXPECT_EQ(drawn[6].text, "Dhr. A. Voorbeeld e/o");
    EXPECT_DOUBLE_EQ(drawn[6].y, Cm(4) + 216 * 1.1);
}

} // namespace composition
