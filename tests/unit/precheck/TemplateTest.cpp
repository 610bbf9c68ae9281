#include "precheck/Template.h"

#include <cmath>
#include <set>
#include <variant>

#include "PrecheckTest.h"
#include "composition/PrintSurface.h"
#include "precheck/Stationery.h"

namespace precheck {

namespace {

constexpr double OffsetTwips = 240; ///< 100 dots of 600 to the inch

double Number(const memory::Event& event, const std::string& name) {
    for (const memory::EventField& field : event.Fields) {
        if (field.Name == name) {
            return std::get<double>(field.Value);
        }
    }
    ADD_FAILURE() << event.Kind << " has no " << name;
    return 0;
}

std::string Text(const memory::Event& event) {
    for (const memory::EventField& field : event.Fields) {
        if (field.Name == "text") {
            return std::get<std::string>(field.Value);
        }
    }
    return {};
}

bool IsNear(double a, double b) {
    return std::abs(a - b) < 0.001;
}

} // namespace

class TemplateTest : public PrecheckTest {
  protected:
    struct DrawnLine {
        double X1, Y1, X2, Y2; ///< millimetres from the corner of the paper
    };

    TemplateTest() {
        memory::PrintQueue queue;
        queue.Name = "Laser";
        memory.InstallPrinter(queue);
        state.Surface = &surface;
        memory.recorder.Sink = [this](const memory::Event& event) {
            if (event.Kind == "line") {
                const auto at = [&](const char* name) {
                    return ToMillimetres(Number(event, name) + OffsetTwips);
                };
                lines.push_back({at("x1"), at("y1"), at("x2"), at("y2")});
            } else if (event.Kind == "text") {
                texts.insert(Text(event));
            } else {
                others.push_back(event.Kind);
            }
        };
    }

    void Draw() { DrawTemplate(state, memory.Services()); }

    bool HasLine(double x1, double y1, double x2, double y2) const {
        return std::any_of(lines.begin(), lines.end(), [&](const DrawnLine& line) {
            return IsNear(line.X1, x1) && IsNear(line.Y1, y1) && IsNear(line.X2, x2) && IsNear(line.Y2, y2);
        });
    }

    composition::PrinterSurface surface{memory.printer};
    std::vector<DrawnLine> lines;
    std::multiset<std::string> texts;
    std::vector<std::string> others;
};

TEST_F(TemplateTest, TheTestLineIsAHundredAndFiftyMillimetres) {
    Draw();
    EXPECT_TRUE(HasLine(42, 80.5, 192, 80.5));
    EXPECT_EQ(
        texts.count(
            "Deze lijn is 150 mm lang. Is zij dat op papier niet, dan verkleint of vergroot de printer."),
        1U);
}

TEST_F(TemplateTest, TheRulersCountFromTheCornerOfThePaper) {
    Draw();
    for (int x = 0; x <= 210; ++x) {
        EXPECT_TRUE(HasLine(x, 5, x, x % 10 == 0 ? 7.2 : x % 5 == 0 ? 6.6 : 6)) << x;
    }
    for (int y = 0; y <= 304; ++y) {
        EXPECT_TRUE(HasLine(205, y, y % 10 == 0 ? 202.8 : y % 5 == 0 ? 203.4 : 204, y)) << y;
    }
    EXPECT_EQ(texts.count("300"), 1U);
    EXPECT_EQ(texts.count("100"), 2U);
}

TEST_F(TemplateTest, FieldsStandWhereTheyDoWithoutCalibration) {
    Draw();
    const std::vector<DrawnLine> calibrated = lines;
    for (const auto& block : state::CalibrationBlocks(state)) {
        std::fill(block.X.begin(), block.X.end(), "");
        std::fill(block.Y.begin(), block.Y.end(), "9,99");
    }
    lines.clear();
    Draw();
    ASSERT_EQ(lines.size(), calibrated.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_TRUE(IsNear(lines[i].Y1, calibrated[i].Y1)) << i;
    }
}

TEST_F(TemplateTest, EachFieldOfEachFormHasItsNameBesideIt) {
    Draw();
    EXPECT_EQ(texts.count("het betalingskenmerk"), 3U);
}

TEST_F(TemplateTest, TheOcrLineHasAWhiteBandFromEdgeToEdge) {
    Draw();
    // The line's letters are as high as half of 24 twips for each of 10 points, from a quarter of that down.
    const double top = ToMillimetres(8.975 * 567 + 60);
    const double bottom = ToMillimetres(8.975 * 567 + 180);
    EXPECT_TRUE(HasLine(0, top - 6.35, 210, top - 6.35));
    EXPECT_TRUE(HasLine(0, bottom + 6.35, 210, bottom + 6.35));
}

TEST_F(TemplateTest, ContractAHasNoOcrLineAndNoBand) {
    state.GMUContractVorm = 1;
    Draw();
    EXPECT_EQ(texts.count("het betalingskenmerk"), 0U);
    EXPECT_TRUE(HasLine(42, 80.5, 192, 80.5));
}

TEST_F(TemplateTest, UnderALetterTheNotesStandOnTheLetter) {
    state.AcceptgiroType = 3;
    Draw();
    EXPECT_TRUE(HasLine(42, 70, 192, 70));
    EXPECT_EQ(texts.count("het betalingskenmerk"), 1U);
    const SheetPlace form = FormsOf(state).front();
    EXPECT_TRUE(HasLine(0, ToMillimetres(form.Top), 210, ToMillimetres(form.Top)));
}

TEST_F(TemplateTest, ItIsOnePageAndSaysWhatItIsNot) {
    Draw();
    EXPECT_TRUE(others.empty());
    EXPECT_EQ(texts.count("Sjabloon voor het proefvel"), 1U);
    EXPECT_EQ(texts.count("Niet het testsjabloon van het testinstituut."), 1U);
}

TEST_F(TemplateTest, ALineThatFailsCostsNoOther) {
    Draw();
    const std::size_t whole = lines.size();
    lines.clear();
    memory.recorder.Fail("DrawLine", 3);
    Draw();
    EXPECT_EQ(lines.size(), whole - 3);
}

TEST_F(TemplateTest, WithoutAPrinterNothingIsDrawn) {
    state.Surface = nullptr;
    Draw();
    EXPECT_TRUE(lines.empty());
}

} // namespace precheck
