#include "composition/CalibrationReport.h"

#include "CompositionTest.h"

namespace composition {

using testing::Contains;
using testing::Not;

class CalibrationReportTest : public CompositionTest {
  protected:
    static constexpr double LineStep = 192 * 1.1;
    static constexpr const char* None = "Geen calibratie ingegeven !";

    struct Section {
        const char* title;
        double x;
        std::string* links;
        std::string* top;
    };
    std::vector<Section> Sections() {
        return {
            {"OCR regel", 450, state.OCRLinks.data(), state.OCRTop.data()},
            {"Integrale acceptgiro (behalve OCR-regel)", 450, state.AcceptGiroLinks.data(),
             state.AcceptGiroTop.data()},
            {"Naam/adres/woonplaatsgegevens", 450, state.AcceptGiroNAWLinks.data(),
             state.AcceptGiroNAWTop.data()},
            {"Betalingskenmerk (linkersouche)", 450, state.AcceptGiroBKSoucheLinks.data(),
             state.AcceptGiroBKSoucheTop.data()},
            {"Betalingskenmerk op acceptgiro", 5450, state.AcceptGiroBKAcceptLinks.data(),
             state.AcceptGiroBKAcceptTop.data()},
            {"Incassant/begunstigde op linker souche", 5450, state.AcceptGiroBGSoucheLinks.data(),
             state.AcceptGiroBGSoucheTop.data()},
            {"Incassant/begunstigde op acceptgiro", 5450, state.AcceptGiroBGAcceptLinks.data(),
             state.AcceptGiroBGAcceptTop.data()},
        };
    }
    void Draw() { PrintCalibrationReport(state, memory.locale); }

    /// The texts between a section's title and the next bold one.
    std::vector<support::DrawnText> Below(const std::string& title) {
        const auto begin = std::find_if(Texts().begin(), Texts().end(),
                                        [&](const support::DrawnText& drawn) { return drawn.text == title; });
        const auto end = std::find_if(begin + 1, Texts().end(), [](const support::DrawnText& drawn) {
            return drawn.bold || drawn.text.starts_with("NB:");
        });
        return {begin + 1, end};
    }
};

TEST_F(CalibrationReportTest, WithoutCalibration) {
    Draw();
    EXPECT_EQ(Texts().front().text, "Instellingen calibratie acceptgiro in millimeters");
    EXPECT_EQ(Texts().front().x, 450);
    EXPECT_DOUBLE_EQ(Texts().front().y, LineStep);
    EXPECT_FALSE(Texts().front().bold);
    ASSERT_EQ(printer.canvas.lines.size(), 1U);
    EXPECT_DOUBLE_EQ(printer.canvas.lines[0].y1, 2 * LineStep);

    const double section = 1.5 * LineStep + 192 + LineStep; // title, message, and the line before the next
    for (std::size_t i = 0; i < 7; ++i) {
        const Section expected = Sections()[i];
        const std::size_t inColumn = i < 4 ? i : i - 4;
        const support::DrawnText title = Drawn(expected.title);
        EXPECT_TRUE(title.bold);
        EXPECT_EQ(title.x, expected.x);
        EXPECT_NEAR(title.y, 3 * LineStep + static_cast<double>(inColumn) * section, 1e-6);
        const std::vector<support::DrawnText> below = Below(expected.title);
        ASSERT_EQ(below.size(), 1U);
        EXPECT_EQ(below[0].text, None);
        EXPECT_FALSE(below[0].bold);
        EXPECT_EQ(below[0].x, expected.x);
        EXPECT_NEAR(below[0].y, title.y + 1.5 * LineStep, 1e-6);
    }
    EXPECT_EQ(printer.canvas.pages, 1);
}

TEST_F(CalibrationReportTest, NotesBelowTheLeftColumn) {
    Draw();
    double y = Drawn(None, 4).y + 192 + 2 * LineStep;
    const auto expectAt = [&](const std::string& text, double x) {
        EXPECT_NEAR(Drawn(text).x, x, 1e-6) << text;
        EXPECT_NEAR(Drawn(text).y, y, 1e-6) << text;
    };
    expectAt(
        "NB: De calibratie X (naar links/rechts) en de Y (naar boven/beneden) waarde worden bepaald vanaf "
        "de basispositie op de acceptgiro.",
        450);
    y += LineStep;
    expectAt(
        "Bij een X van 1,00 en een Y van -1,00 wordt vanaf de basispositie 1 mm. naar rechts en 1 mm. naar "
        "boven afgedrukt.",
        450);
    y += 2 * LineStep;
    expectAt("Contractvorm: ", 450);
    expectAt("C-Contract - Blanco acceptgiro zonder servicenr.", 450 + 14 * 80);
    y += LineStep;
    expectAt("Acceptgiro type: ", 450);
    expectAt("Acceptgiro's, 3 op 1 vel, smalle souche", 450 + 17 * 80);
    y += 192 + 2 * LineStep;
    expectAt("OCR-B schrift :     ", 450);
    const std::string sample = "1234567890+><ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    expectAt(sample, 450 + 20 * 80);
    EXPECT_EQ(Drawn(sample).font, OcrFont);
    EXPECT_EQ(Drawn(sample).size, 12);
    y += 24 * 12 + 2 * LineStep;
    expectAt("Bovenstaand is het door u gekozen OCR-B schrift", 450);
    for (const support::DrawnText& drawn : Texts()) {
        if (drawn.text != sample) {
            EXPECT_EQ(drawn.font, "Printer") << drawn.text;
            EXPECT_EQ(drawn.size, 8) << drawn.text;
        }
    }
}

TEST_F(CalibrationReportTest, UnknownTypeLeavesItsLineOpen) {
    state.AcceptgiroType = 0;
    Draw();
    const support::DrawnText label = Drawn("Acceptgiro type: ");
    EXPECT_NEAR(Drawn("OCR-B schrift :     ").y, label.y + 2 * LineStep, 1e-6);
}

TEST_F(CalibrationReportTest, AllFourPlacesAreLabelledForEveryType) {
    for (const Section& section : Sections()) {
        section.links[0] = "1,00";
    }
    for (const std::int16_t type : Numbers{0, 1, 2, 3}) {
        Texts().clear();
        state.AcceptgiroType = type;
        Draw();
        for (const char* label : {"Acceptgiro 1", "Acceptgiro 2", "Acceptgiro 3", "Acceptgiro onder brief"}) {
            const std::vector<std::string> words = Words();
            EXPECT_EQ(std::count(words.begin(), words.end(), label), 7) << label << " for type " << type;
        }
    }
}

TEST_F(CalibrationReportTest, AFontThatTheSurfaceLacksIsAskedForAllTheSame) {
    state.GMUFontName = "Bestaat Niet";
    state.GMUFontSize = "10";
    Draw();
    const support::DrawnText sample = Drawn("1234567890+><ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(sample.font, "Bestaat Niet");
    EXPECT_EQ(sample.size, 10);
    EXPECT_EQ(Drawn("Bovenstaand is het door u gekozen OCR-B schrift").font, "Printer");
}

TEST_F(CalibrationReportTest, EachContractAndType) {
    state.GMUContractVorm = 30;
    state.AcceptgiroType = 2;
    Draw();
    EXPECT_TRUE(IsDrawn("Er is (nog) geen contractsoort ingesteld."));
    EXPECT_TRUE(IsDrawn("Acceptgiro's, 3 op 1 vel, brede souche"));
    state.GMUContractVorm = 33;
    state.AcceptgiroType = 3;
    Draw();
    EXPECT_TRUE(IsDrawn("C-Contract - Voorbedrukte acceptgiro"));
    EXPECT_TRUE(IsDrawn("Acceptgiro onder brief, smalle souche"));
}

TEST_F(CalibrationReportTest, ValuesOfEachSection) {
    int number = 0;
    for (const Section& section : Sections()) {
        for (std::size_t i = 0; i < 4; ++i) {
            section.links[i] = " " + std::to_string(++number) + ",00 ";
            section.top[i] = "-" + std::to_string(number) + ",50";
        }
    }
    Draw();
    EXPECT_THAT(Words(), Not(Contains(None)));
    number = 0;
    for (const Section& section : Sections()) {
        const bool last = std::string(section.title) == "Incassant/begunstigde op acceptgiro";
        const std::vector<support::DrawnText> below = Below(section.title);
        ASSERT_EQ(below.size(), 4U * 5) << section.title;
        double y = Drawn(section.title).y + 1.5 * LineStep;
        for (std::size_t i = 0; i < 4; ++i) {
            const support::DrawnText* drawn = &below[5 * i];
            std::string links = std::to_string(++number) + ",00";
            std::string top = "-" + std::to_string(number) + ",50";
            if (last) {
                const std::string meaning = "  - Correctie naar printer: ";
                links += meaning + std::to_string(static_cast<int>(std::nearbyint(number * 56.7)));
                top += meaning + std::to_string(static_cast<int>(std::nearbyint(-(number + 0.5) * 56.7)));
            }
            EXPECT_EQ(drawn[0].text,
                      i < 3 ? "Acceptgiro " + std::to_string(i + 1) : "Acceptgiro onder brief");
            EXPECT_EQ(drawn[1].text, "X-waarde :");
            EXPECT_EQ(drawn[2].text, links);
            EXPECT_EQ(drawn[3].text, "Y-waarde :");
            EXPECT_EQ(drawn[4].text, top);
            EXPECT_EQ(drawn[0].x, section.x);
            EXPECT_EQ(drawn[1].x, section.x + 150);
            EXPECT_EQ(drawn[2].x, section.x + 1500);
            EXPECT_EQ(drawn[3].x, section.x + 150);
            EXPECT_EQ(drawn[4].x, section.x + 1500);
            EXPECT_NEAR(drawn[0].y, y, 1e-6);
            EXPECT_NEAR(drawn[1].y, y + 192, 1e-6);
            EXPECT_EQ(drawn[2].y, drawn[1].y);
            EXPECT_NEAR(drawn[3].y, y + 2 * 192, 1e-6);
            EXPECT_EQ(drawn[4].y, drawn[3].y);
            y += 3 * 192 + 0.2 * LineStep;
        }
    }
}

TEST_F(CalibrationReportTest, FirstXValueAloneTellsWhetherThereIsCalibration) {
    for (const Section& section : Sections()) {
        section.links[0] = "1,00";
    }
    Draw();
    EXPECT_THAT(Words(), Not(Contains(None)));
    EXPECT_EQ(Below("OCR regel").size(), 4U * 3 + 1); // labels, and the one value
    const std::vector<support::DrawnText> last = Below("Incassant/begunstigde op acceptgiro");
    ASSERT_EQ(last.size(), 20U);
    EXPECT_EQ(last[2].text, "1,00  - Correctie naar printer: 57");
    EXPECT_EQ(last[4].text, "  - Correctie naar printer: 0");
    EXPECT_EQ(last[19].text, "  - Correctie naar printer: 0");

    Texts().clear();
    for (const Section& section : Sections()) {
        section.links[0] = "";
        section.links[1] = section.top[0] = "2,00";
    }
    Draw();
    EXPECT_FALSE(IsDrawn("2,00"));
    EXPECT_FALSE(IsDrawn("X-waarde :"));
    EXPECT_EQ(Drawn(None, 7).x, 5450);
}

TEST_F(CalibrationReportTest, ValueThatIsNoNumberMeansNothingToThePrinter) {
    state.AcceptGiroBGAcceptLinks[0] = "links";
    state.AcceptGiroBGAcceptTop[0] = "-1,00";
    Draw();
    EXPECT_TRUE(IsDrawn("links  - Correctie naar printer: 0"));
    EXPECT_TRUE(IsDrawn("-1,00  - Correctie naar printer: -57"));
}

TEST_F(CalibrationReportTest, BlankValueIsCalibration) {
    state.OCRLinks[0] = "  ";
    Draw();
    EXPECT_EQ(Below("OCR regel").size(), 4U * 3);
}

TEST_F(CalibrationReportTest, NeverBreaksThePage) {
    state.PageHeight = 100;
    for (const Section& section : Sections()) {
        section.links[0] = "1,00";
    }
    Draw();
    EXPECT_EQ(printer.canvas.pages, 1);
}

} // namespace composition
