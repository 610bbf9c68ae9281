#include "composition/PrintIncassant.h"

#include "CompositionTest.h"

namespace composition {

using testing::ElementsAre;
using testing::IsEmpty;

class PrintIncassantTest : public CompositionTest {
  protected:
    static double Cm(double cm) { return cm * 567; }

    PrintIncassantTest() { printer.Drawing.Font = {"Tahoma", 10, false}; }

    void Draw(Twips corner = {}, std::int16_t positie = 1) {
        PrintIncassant(state, services, state.AcceptgiroType != 2, corner, incassant, positie);
    }
    void ExpectDrawn(const std::string& text, int nth, double x, double y, double size, bool bold) {
        const support::DrawnText drawn = Drawn(text, nth);
        EXPECT_DOUBLE_EQ(drawn.x, x) << text;
        EXPECT_NEAR(drawn.y, y, 1e-9) << text;
        EXPECT_EQ(drawn.font, "Tahoma") << text;
        EXPECT_EQ(drawn.size, size) << text;
        EXPECT_EQ(drawn.bold, bold) << text;
    }

    static constexpr const char* Account = "NL13ABNA0500000018";
    static constexpr const char* Name = "Stichting Proef";
    static constexpr const char* Address = "Voorbeeldstraat 1, 1234 AB  TESTDAM";
    IncassantTekst incassant = {.rekening = Account,
                                .naam = Name,
                                .adres = "Voorbeeldstraat 1",
                                .postcode = "1234AB",
                                .plaats = "TESTDAM"};
    // Lines of the stub at size 6, of the accept part at size 7.
    const double stubLine = 144 * 1.1;
    const double acceptLine = 168 * 1.1;
};

TEST_F(PrintIncassantTest, WholeBlock) {
    Draw();
    EXPECT_THAT(Words(), ElementsAre(Account, Name, "TESTDAM", Account, Name, Address));
    ExpectDrawn(Account, 1, Cm(0.25), Cm(7), 8, false);
    ExpectDrawn(Name, 1, Cm(0.25), Cm(7) + 1.2 * stubLine, 6, true);
    ExpectDrawn("TESTDAM", 1, Cm(0.25), Cm(7) + 2.2 * stubLine, 6, true);
    ExpectDrawn(Account, 2, Cm(6.5), Cm(6.5), 9, false);
    ExpectDrawn(Name, 2, Cm(6.5), Cm(6.5) + 1.3 * acceptLine, 7, true);
    ExpectDrawn(Address, 1, Cm(6.5), Cm(6.5) + 2.3 * acceptLine, 7, true);
    EXPECT_EQ(printer.Drawing.Font, (machine::FontSpec{"Tahoma", 7, false}));
}

TEST_F(PrintIncassantTest, WideStubMovesTheAcceptPartOneCentimetre) {
    state.AcceptgiroType = 2;
    Draw();
    ExpectDrawn(Account, 1, Cm(0.25), Cm(7), 8, false);
    ExpectDrawn(Account, 2, Cm(7.5), Cm(6.5), 9, false);
    ExpectDrawn(Name, 2, Cm(7.5), Cm(6.5) + 1.3 * acceptLine, 7, true);
    ExpectDrawn(Address, 1, Cm(7.5), Cm(6.5) + 2.3 * acceptLine, 7, true);
}

TEST_F(PrintIncassantTest, ContractTellsWhatIsOnTheStationery) {
    for (const std::int16_t contract : Numbers{-1, 1, 2, 33}) {
        state.GMUContractVorm = contract;
        Draw();
        EXPECT_THAT(Words(), IsEmpty()) << contract;
    }
    for (const std::int16_t contract : Numbers{0, 3, 31, 32, 99}) {
        state.GMUContractVorm = contract;
        Texts().clear();
        Draw();
        EXPECT_EQ(Texts().size(), 6U) << contract;
    }
}

TEST_F(PrintIncassantTest, AccountAloneUnderContract34) {
    state.GMUContractVorm = 34;
    Draw();
    EXPECT_THAT(Words(), ElementsAre(Account, Account));
    ExpectDrawn(Account, 1, Cm(0.25), Cm(7), 8, false);
    ExpectDrawn(Account, 2, Cm(6.5), Cm(6.5), 9, false);
}

TEST_F(PrintIncassantTest, NothingWhereItIsSwitchedOff) {
    state.IncassantAfdrukken = false;
    Draw();
    EXPECT_THAT(Words(), IsEmpty());
    EXPECT_EQ(printer.Drawing.Font.Size, 10);
}

TEST_F(PrintIncassantTest, AddressLineNeedsAllItsTexts) {
    const IncassantTekst whole = incassant;
    incassant.adres = {};
    Draw();
    EXPECT_THAT(Words(), ElementsAre(Account, Name, "TESTDAM", Account, Name));
    incassant = whole;
    incassant.postcode = {};
    Texts().clear();
    Draw();
    EXPECT_THAT(Words(), ElementsAre(Account, Name, "TESTDAM", Account, Name));
    incassant = whole;
    incassant.plaats = {};
    Texts().clear();
    Draw();
    EXPECT_THAT(Words(), ElementsAre(Account, Name, Account, Name));
}

TEST_F(PrintIncassantTest, LongNameIsCutOnTheStubAlone) {
    incassant.naam = "Stichting tot Behoud van Proeven en Voorbeelden";
    incassant.plaats = "EEN PLAATS VAN MEER DAN VEERTIG TEKENS LANG";
    Draw();
    // From 0.25 cm (141.75, so 142) to 3.7 cm (2098): 1956 twips, 29 bold characters of 66.
    EXPECT_EQ(Texts()[1].text, "Stichting tot Behoud van Proe");
    EXPECT_EQ(Texts()[2].text, "EEN PLAATS VAN MEER DAN VEERT");
    EXPECT_EQ(Texts()[4].text, incassant.naam);
}

TEST_F(PrintIncassantTest, StubBeginsAtTenTwipsAtLeast) {
    state.AcceptGiroBGSoucheLinks[0] = "-3";
    Draw({.x = -100, .y = 0});
    EXPECT_EQ(Texts()[0].x, 10);
    EXPECT_EQ(Texts()[1].x, 10);
    EXPECT_EQ(Texts()[2].x, 10);
    EXPECT_DOUBLE_EQ(Texts()[3].x, Cm(6.5) - 100);
}

TEST_F(PrintIncassantTest, CalibrationOfTheStub) {
    state.AcceptGiroBGSoucheLinks[1] = "1";
    state.AcceptGiroBGSoucheTop[1] = "2";
    Draw({.x = 0, .y = 1000}, 2);
    ExpectDrawn(Account, 1, Cm(0.25) + 57, Cm(7) + 1000 + 113, 8, false);
    ExpectDrawn(Account, 2, Cm(6.5), Cm(6.5) + 1000, 9, false);
}

TEST_F(PrintIncassantTest, CalibrationOfTheAcceptPartCountsTwiceAndItsTopNot) {
    state.AcceptGiroBGAcceptTop[0] = "30";
    Draw();
    ExpectDrawn(Account, 2, Cm(6.5), Cm(6.5), 9, false);
    state.AcceptGiroBGAcceptLinks[0] = "2";
    Texts().clear();
    Draw();
    ExpectDrawn(Account, 1, Cm(0.25), Cm(7), 8, false);
    ExpectDrawn(Account, 2, Cm(6.5) + 113, Cm(6.5) + 113, 9, false);
    ExpectDrawn(Name, 2, Cm(6.5) + 113, Cm(6.5) + 113 + 1.3 * acceptLine, 7, true);
}

TEST_F(PrintIncassantTest, CalibrationOfTheWholeForm) {
    state.AcceptGiroLinks[0] = "1";
    state.AcceptGiroTop[0] = "5";
    Draw();
    ExpectDrawn(Account, 1, Cm(0.25) + 57, Cm(7) + 284, 8, false);
    ExpectDrawn(Account, 2, Cm(6.5) + 57, Cm(6.5) + 284, 9, false);
}

TEST_F(PrintIncassantTest, UnderALetterTheFourthPlaceCounts) {
    state.AcceptgiroType = 3;
    state.AcceptGiroTop = {"10", "10", "10", "20", "10"};
    state.AcceptGiroBGSoucheTop = {"10", "10", "10", "30", "10"};
    Draw({}, 1);
    EXPECT_DOUBLE_EQ(Texts()[0].y, Cm(7) + 1134 + 1701);
}

TEST_F(PrintIncassantTest, LineHeightsComeFromThePrinterAlsoInAPreview) {
    host.OpenPreview(0);
    Draw();
    const std::vector<support::DrawnText>& drawn = host.preview.canvas.texts;
    ASSERT_EQ(drawn.size(), 6U);
    EXPECT_NEAR(drawn[1].y, Cm(7) + 1.2 * 192 * 1.1, 1e-9); // the printer at size 8
    EXPECT_NEAR(drawn[4].y, Cm(6.5) + 1.3 * 192 * 1.1, 1e-9);
}

} // namespace composition
