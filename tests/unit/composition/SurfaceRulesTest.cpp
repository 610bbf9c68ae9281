#include "composition/SurfaceRules.h"

#include <limits>
#include <string>

#include "CompositionTest.h"
#include "base/RuntimeError.h"

namespace composition {

class SurfaceRulesTest : public CompositionTest {
  protected:
    std::int32_t Calibrated(std::int32_t basis, std::string_view waarde) {
        return Kalibreer(state, memory.locale, basis, waarde);
    }
    PrintSurface& surface = host.printer;
};

TEST_F(SurfaceRulesTest, PageIsFullTwoLinesBeforeItsEnd) {
    state.LineHeight = 100;
    state.PageHeight = 1000;
    surface.SetCurrentY(800);
    EXPECT_FALSE(PaginaVol(state, 0)); // exactly at the end
    surface.SetCurrentY(800.5);
    EXPECT_TRUE(PaginaVol(state, 0));
    surface.SetCurrentY(500);
    EXPECT_FALSE(PaginaVol(state, 3));
    surface.SetCurrentY(501);
    EXPECT_TRUE(PaginaVol(state, 3));
    EXPECT_TRUE(PaginaVol(state, std::numeric_limits<std::int16_t>::max()));
}

TEST_F(SurfaceRulesTest, LineFeedMovesTheCursorAlone) {
    state.LineHeight = 200;
    surface.SetCurrentX(50);
    surface.SetCurrentY(1000);
    RegelVerder(state, 1.5);
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 1000 + 1.5 * 200 * 1.1);
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(printer.canvas.calls, 0);
}

TEST_F(SurfaceRulesTest, LineFeedOfATextFollowsTheLocale) {
    state.LineHeight = 100;
    surface.SetCurrentX(500);
    RegelVerder(state, memory.locale, "");
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 110);
    EXPECT_EQ(surface.CurrentX(), 0);
    surface.SetCurrentY(0);
    RegelVerder(state, memory.locale, "1,2");
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 1.2 * 100 * 1.1);
    memory.locale.SetDecimalMark('.');
    surface.SetCurrentY(0);
    RegelVerder(state, memory.locale, "1.2");
    EXPECT_DOUBLE_EQ(surface.CurrentY(), 1.2 * 100 * 1.1);
    EXPECT_THROW(RegelVerder(state, memory.locale, "1,2"), base::RuntimeError);
}

TEST_F(SurfaceRulesTest, RuleOfFullWidthKeepsEqualMargins) {
    state.SurfaceLeft = 7;
    surface.SetCurrentX(900);
    surface.SetCurrentY(300);
    std::int32_t x2 = 0;
    TrekLijn(state, 0, x2, 0);
    ASSERT_EQ(printer.canvas.lines.size(), 1U);
    const support::DrawnLine line = printer.canvas.lines[0];
    EXPECT_EQ(line.x1, 450);
    EXPECT_EQ(line.x2, 11424 - 450);
    EXPECT_EQ(line.y1, 300);
    EXPECT_EQ(line.y2, 300);
    EXPECT_EQ(line.colour, 0);
    EXPECT_EQ(surface.CurrentX(), 7);
    EXPECT_EQ(surface.CurrentY(), 300);
    EXPECT_EQ(x2, 0);
}

TEST_F(SurfaceRulesTest, RuleFromAPlaceFillsInTheRightMargin) {
    std::int32_t x2 = 0;
    TrekLijn(state, 1000, x2, 255);
    EXPECT_EQ(x2, 11424 - 450);
    EXPECT_EQ(printer.canvas.lines[0].x1, 1000);
    EXPECT_EQ(printer.canvas.lines[0].x2, 11424 - 450);
    EXPECT_EQ(printer.canvas.lines[0].colour, 255);
    x2 = 2000;
    TrekLijn(state, 1000, x2, 255);
    EXPECT_EQ(printer.canvas.lines[1].x2, 2000);
    EXPECT_EQ(surface.CurrentX(), state.SurfaceLeft);
}

TEST_F(SurfaceRulesTest, CalibrationIsInMillimetres) {
    EXPECT_EQ(Calibrated(0, "1,00"), 57);
    EXPECT_EQ(Calibrated(100, "1,00"), 157);
    EXPECT_EQ(Calibrated(0, "-1,00"), -57);
    EXPECT_EQ(Calibrated(0, "+1,00"), 57);
    EXPECT_EQ(Calibrated(0, " 1 "), 57);
    EXPECT_EQ(Calibrated(0, ",5"), 28);
    EXPECT_EQ(Calibrated(0, "2,"), 113);
    EXPECT_EQ(Calibrated(0, "10"), 567);
}

TEST_F(SurfaceRulesTest, CalibrationRoundsTheSumOnceToTheEvenNumber) {
    EXPECT_EQ(Calibrated(11227, "5"), 11510);
    EXPECT_EQ(Calibrated(1, "5"), 284);
    EXPECT_EQ(Calibrated(0, "5"), 284);
}

TEST_F(SurfaceRulesTest, CalibrationFollowsTheLocale) {
    EXPECT_EQ(Calibrated(0, "1.00"), 0);
    memory.locale.SetDecimalMark('.');
    EXPECT_EQ(Calibrated(0, "1.00"), 57);
    EXPECT_EQ(Calibrated(0, "1,00"), 0);
}

TEST_F(SurfaceRulesTest, CalibrationThatIsNoNumberMovesNothing) {
    for (const char* waarde :
         {"", " ", "abc", "1,0,0", "1 0", "--1", "-", ",", "1e3", "0x10", "12mm", "\xff"}) {
        EXPECT_EQ(Calibrated(100, waarde), 100) << waarde;
    }
    EXPECT_EQ(Calibrated(100, std::string("1\0", 2)), 100);
}

TEST_F(SurfaceRulesTest, CalibrationBeyondAllSheetsMovesNothing) {
    EXPECT_EQ(Calibrated(100, "99999999999"), 100);
    EXPECT_EQ(Calibrated(100, "-99999999999"), 100);
    EXPECT_EQ(Calibrated(100, std::string(400, '9')), 100);
    EXPECT_EQ(Calibrated(std::numeric_limits<std::int32_t>::max(), "1"),
              std::numeric_limits<std::int32_t>::max());
}

} // namespace composition
