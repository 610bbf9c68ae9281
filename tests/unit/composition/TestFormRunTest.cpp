#include "composition/TestFormRun.h"

#include <set>

#include "CompositionTest.h"
#include "payment/OcrLine.h"

namespace composition {

using testing::ElementsAre;
using testing::IsEmpty;

class TestFormRunTest : public CompositionTest {
  protected:
    static double Cm(double cm) { return cm * 567; }

    void Run(std::int32_t aantal, std::int16_t copies = 1) {
        const Twips corner = {-state.PhysicalOffsetX, -state.PhysicalOffsetY};
        TestFormRun(state, services, host, corner).Print(aantal, copies);
    }

    /// Each drawing of a text that stands once on a form.
    std::vector<support::DrawnText> All(const std::string& text) {
        std::vector<support::DrawnText> all;
        std::copy_if(Texts().begin(), Texts().end(), std::back_inserter(all),
                     [&](const support::DrawnText& drawn) { return drawn.text == text; });
        return all;
    }
    /// Page and top of each form, by the mark of its OCR line.
    std::vector<std::pair<int, double>> Places() {
        std::vector<std::pair<int, double>> places;
        for (const support::DrawnText& mark : All("X")) {
            places.emplace_back(mark.page, std::nearbyint(mark.y - 8.975 * 567));
        }
        return places;
    }
    /// The reference field of each form.
    std::vector<std::string> References() {
        std::vector<std::string> references;
        for (const support::DrawnText& drawn : Texts()) {
            if (drawn.text.size() == 17 && drawn.text.back() == '+') {
                references.push_back(drawn.text);
            }
        }
        return references;
    }

    using Place = std::pair<int, double>;
    static constexpr double Second = 5760;  // 10.158 x 567 = 5759.586
    static constexpr double Third = 11520;  // 20.317 x 567 = 11519.739
    static constexpr double Letter = 11227; // 19.8 x 567 = 11226.6
};

TEST_F(TestFormRunTest, OneForm) {
    Run(1);
    EXPECT_THAT(Places(), ElementsAre(Place(1, 0)));
    EXPECT_EQ(printer.canvas.pages, 1);
    EXPECT_THAT(host.percentages, ElementsAre(100));
    EXPECT_TRUE(IsDrawn("DRUKKEURING "));
    EXPECT_EQ(Drawn("NL13ABNA0500000018").size, 8); // the creditor
    EXPECT_TRUE(IsDrawn("NL13ABNA0500000018+"));
    EXPECT_TRUE(IsDrawn("ABNANL2A+"));
    EXPECT_THAT(References(), ElementsAre("6100000001010326+"));
    const std::string_view person = testdata::PersonTable()[0];
    EXPECT_TRUE(IsDrawn(std::string(person.substr(88, 50))));
    EXPECT_TRUE(IsDrawn(std::string(person.substr(80, 7)) + "  " + std::string(person.substr(138))));
}

TEST_F(TestFormRunTest, ThreeFormsFillASheetAndBreakNoPage) {
    Run(3);
    EXPECT_THAT(Places(), ElementsAre(Place(1, 0), Place(1, Second), Place(1, Third)));
    EXPECT_EQ(printer.canvas.pages, 1);
    EXPECT_THAT(host.percentages, ElementsAre(33, 67, 100));
}

TEST_F(TestFormRunTest, FourthFormBeginsTheNextSheet) {
    Run(4);
    EXPECT_THAT(Places(), ElementsAre(Place(1, 0), Place(1, Second), Place(1, Third), Place(2, 0)));
    EXPECT_EQ(printer.canvas.pages, 2);
    EXPECT_THAT(host.percentages, ElementsAre(25, 50, 75, 100));
}

TEST_F(TestFormRunTest, UnderALetterEachFormHasItsPage) {
    state.AcceptgiroType = 3;
    Run(3);
    EXPECT_THAT(Places(), ElementsAre(Place(1, Letter), Place(2, Letter), Place(3, Letter)));
    EXPECT_EQ(printer.canvas.pages, 3);
}

TEST_F(TestFormRunTest, OffsetsMoveTheFormsToTheEdgeOfThePaper) {
    state.PhysicalOffsetX = 233;
    state.PhysicalOffsetY = 200;
    Run(4);
    EXPECT_THAT(Places(),
                ElementsAre(Place(1, -200), Place(1, Second - 200), Place(1, Third - 200), Place(2, -200)));
    for (const support::DrawnText& mark : All("X")) {
        EXPECT_DOUBLE_EQ(mark.x, Cm(3.2) - 233);
    }
    state.AcceptgiroType = 3;
    Texts().clear();
    printer.canvas.pages = 1;
    Run(1);
    EXPECT_THAT(Places(), ElementsAre(Place(1, Letter - 200)));
}

TEST_F(TestFormRunTest, CopiesTakeTheNextPlaces) {
    Run(2, 3);
    EXPECT_THAT(Places(), ElementsAre(Place(1, 0), Place(1, Second), Place(1, Third), Place(2, 0),
                                      Place(2, Second), Place(2, Third)));
    EXPECT_THAT(host.percentages, ElementsAre(50, 100));
    const std::vector<std::string> references = References();
    EXPECT_EQ(std::set<std::string>(references.begin(), references.begin() + 3).size(), 1U);
    EXPECT_NE(references[2], references[3]);

    Texts().clear();
    printer.canvas.pages = 1;
    Run(2, 2);
    EXPECT_THAT(Places(), ElementsAre(Place(1, 0), Place(1, Second), Place(1, Third), Place(2, 0)));
    EXPECT_EQ(References()[1], References()[0]);
    EXPECT_EQ(References()[3], References()[2]);
}

TEST_F(TestFormRunTest, CopiesShowTheSameValues) {
    Run(1, 3);
    ASSERT_EQ(Texts().size() % 3, 0U);
    const std::size_t form = Texts().size() / 3;
    for (std::size_t i = 0; i < form; ++i) {
        EXPECT_EQ(Texts()[i].text, Texts()[i + form].text);
        EXPECT_EQ(Texts()[i].text, Texts()[i + 2 * form].text);
        EXPECT_EQ(Texts()[i].x, Texts()[i + form].x);
    }
}

TEST_F(TestFormRunTest, NoCopiesDrawNothingAndCountAllTheSame) {
    for (const std::int16_t copies : Numbers{0, -1, -32768}) {
        host.percentages.clear();
        Run(2, copies);
        EXPECT_THAT(Texts(), IsEmpty());
        EXPECT_THAT(host.percentages, ElementsAre(50, 100));
    }
}

TEST_F(TestFormRunTest, NoFormsForACountOfNone) {
    for (const std::int32_t aantal : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        Run(aantal);
        EXPECT_THAT(Texts(), IsEmpty());
        EXPECT_THAT(host.percentages, IsEmpty());
    }
}

TEST_F(TestFormRunTest, UnknownStationeryGetsTheOcrLineAlone) {
    for (const std::int16_t type : Numbers{0, 4, -1}) {
        state.AcceptgiroType = type;
        Texts().clear();
        printer.canvas.pages = 1;
        Run(4);
        EXPECT_THAT(Places(), ElementsAre(Place(1, 0), Place(1, Second), Place(1, Third), Place(2, 0)));
        EXPECT_EQ(Texts().size(), 4U * 9);
        EXPECT_FALSE(IsDrawn("DRUKKEURING "));
    }
}

TEST_F(TestFormRunTest, EachTypeAndContractDrawsItsTexts) {
    // Texts on the first form: payer and amount, creditor, reference and OCR line.
    struct Row {
        std::int16_t contract;
        std::size_t creditor;
        std::size_t ocr;
    };
    const Row rows[] = {{-1, 0, 0}, {0, 6, 9},   {1, 0, 0},  {2, 0, 8},
                        {31, 6, 9}, {32, 6, 10}, {33, 0, 9}, {34, 2, 9}};
    state.GMUServiceNr = "7";
    const bool couple = testdata::PersonTable()[0].find("e/o") != std::string_view::npos;
    for (const Row& row : rows) {
        for (const std::int16_t type : Numbers{0, 1, 2, 3}) {
            state.GMUContractVorm = row.contract;
            state.AcceptgiroType = type;
            Texts().clear();
            Run(1);
            const std::size_t payer = type == 0 ? 0 : couple && type != 2 ? 10 : 9;
            const std::size_t creditor = type == 0 ? 0 : row.creditor;
            EXPECT_EQ(Texts().size(), payer + creditor + row.ocr)
                << "contract " << row.contract << " type " << type;
        }
    }
}

TEST_F(TestFormRunTest, WideStub) {
    state.AcceptgiroType = 2;
    Run(1);
    EXPECT_DOUBLE_EQ(Drawn("DRUKKEURING ").x, Cm(11));
    EXPECT_DOUBLE_EQ(Drawn("NL13ABNA0500000018", 2).x, Cm(7.5));
}

TEST_F(TestFormRunTest, CalibrationFollowsThePlaceOnTheSheet) {
    state.OCRLinks = {"1", "2", "3", "4"};
    state.AcceptGiroLinks = {"10", "20", "30", "40", ""};
    Run(4);
    const std::vector<support::DrawnText> marks = All("X");
    const std::vector<support::DrawnText> descriptions = All("DRUKKEURING ");
    const double ocr[] = {57, 113, 170, 57};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_DOUBLE_EQ(marks[i].x, Cm(3.2) + ocr[i]);
        EXPECT_DOUBLE_EQ(descriptions[i].x, Cm(10.3) + 567.0 * static_cast<double>(i % 3 + 1));
    }
    state.AcceptgiroType = 3;
    Texts().clear();
    Run(1);
    EXPECT_DOUBLE_EQ(All("X")[0].x, Cm(3.2) + 227);
    EXPECT_DOUBLE_EQ(All("DRUKKEURING ")[0].x, Cm(10.3) + 4 * 567);
}

TEST_F(TestFormRunTest, DateIsReadForEachForm) {
    memory.clock.Set({2026, 12, 31, 23, 59, 59, 0});
    host.OnCall = [&](const std::string&) { memory.clock.Set({2027, 1, 1, 0, 0, 1, 0}); };
    Run(2);
    const std::vector<std::string> references = References();
    ASSERT_EQ(references.size(), 2U);
    EXPECT_EQ(references[0].substr(1), "100000001011226+");
    EXPECT_EQ(references[1].substr(1), "100000002010127+");
}

TEST_F(TestFormRunTest, BatchBeyondTheTableGoesOnWithBlankPayers) {
    Run(300);
    EXPECT_EQ(Places().size(), 300U);
    EXPECT_EQ(printer.canvas.pages, 100);
    EXPECT_EQ(All("  ").size(), 50U); // postcode and town of nobody
    EXPECT_EQ(References().back().substr(1), "100000300010326+");
    EXPECT_EQ(host.percentages.back(), 100);
    EXPECT_EQ(host.percentages.size(), 300U);
}

TEST_F(TestFormRunTest, FormsWithoutAnAccountStillShowTheirAmount) {
    Run(32);
    // The account of a form stands at 4.5 cm, in the OCR font.
    std::vector<int> accounts;
    for (const support::DrawnText& drawn : Texts()) {
        if (drawn.font == OcrFont && std::abs(drawn.x - Cm(4.5)) < 0.01) {
            accounts.push_back(drawn.page);
        }
    }
    EXPECT_EQ(accounts.size(), 31U); // the 32nd form has none
    EXPECT_EQ(Places().size(), 32U);
}

TEST_F(TestFormRunTest, CreditorWithoutABankThatIsKnownHasNoBic) {
    state.IncassantBankGiro = "1234567";
    Run(1);
    EXPECT_TRUE(IsDrawn("1234567+"));
    EXPECT_FALSE(IsDrawn("+"));
    EXPECT_EQ(Drawn("1234567+").x, Cm(14.37));
}

} // namespace composition
