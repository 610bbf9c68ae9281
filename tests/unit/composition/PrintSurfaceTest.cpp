#include "composition/PrintSurface.h"

#include <limits>

#include "CompositionTest.h"
#include "base/Resume.h"

namespace composition {

using base::RuntimeError;
using testing::ElementsAre;

class PrintSurfaceTest : public CompositionTest {
  protected:
    PrintSurfaceTest() {
        surface.SetCurrentX(100);
        surface.SetCurrentY(200);
    }
    PrintSurface& surface = host.printer;
};

TEST_F(PrintSurfaceTest, PrintStaysOnTheLineBehindTheText) {
    surface.Print("abc");
    EXPECT_EQ(surface.CurrentX(), 100 + 3 * 80);
    EXPECT_EQ(surface.CurrentY(), 200);
    surface.Print("d");
    EXPECT_EQ(Texts()[1].x, 340);
    EXPECT_EQ(Texts()[1].y, 200);
}

TEST_F(PrintSurfaceTest, PrintLineEndsTheLine) {
    surface.PrintLine("abc");
    EXPECT_EQ(Texts()[0].x, 100);
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), 200 + 24 * 8);
}

TEST_F(PrintSurfaceTest, EmptyTextIsNotDrawn) {
    surface.Print("");
    EXPECT_EQ(surface.CurrentX(), 100);
    EXPECT_EQ(surface.CurrentY(), 200);
    surface.PrintLine("");
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), 200 + 24 * 8);
    EXPECT_TRUE(Texts().empty());
}

TEST_F(PrintSurfaceTest, BlanksAreDrawn) {
    surface.Print("  ");
    EXPECT_THAT(Words(), ElementsAre("  "));
    EXPECT_EQ(surface.CurrentX(), 100 + 2 * 80);
}

TEST_F(PrintSurfaceTest, FontIsKeptForAllThatFollows) {
    surface.SetFont("Tahoma");
    surface.SetFontSize(10);
    surface.SetFontBold(true);
    EXPECT_EQ(surface.TextWidth("ab"), 2 * 110);
    EXPECT_EQ(surface.TextHeight("ab"), 240);
    surface.Print("ab");
    EXPECT_EQ(Texts()[0].font, "Tahoma");
    EXPECT_EQ(Texts()[0].size, 10);
    EXPECT_TRUE(Texts()[0].bold);
    EXPECT_EQ(surface.Font(), "Tahoma");
    EXPECT_EQ(surface.FontSize(), 10);
}

TEST_F(PrintSurfaceTest, ImpossibleFontSizeLeavesTheOldOne) {
    for (const double points : {0.0, -3.0, 1e9, std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()}) {
        surface.SetFontSize(points);
        EXPECT_EQ(surface.FontSize(), 8) << points;
    }
    surface.SetFontSize(0.5);
    EXPECT_EQ(surface.FontSize(), 0.5);
}

TEST_F(PrintSurfaceTest, LineLeavesTheCursor) {
    surface.Line(1, 2, 3, 4, 0xFF);
    ASSERT_EQ(printer.canvas.lines.size(), 1U);
    EXPECT_EQ(printer.canvas.lines[0].x2, 3);
    EXPECT_EQ(printer.canvas.lines[0].colour, 0xFF);
    EXPECT_EQ(surface.CurrentX(), 100);
    EXPECT_EQ(surface.CurrentY(), 200);
}

TEST_F(PrintSurfaceTest, NewPageAndNewDocumentBeginAtTheTopLeft) {
    surface.Newpage();
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), 0);
    EXPECT_EQ(printer.canvas.pages, 2);

    surface.SetCurrentY(50);
    surface.EndDoc();
    EXPECT_EQ(surface.CurrentY(), 0);
    EXPECT_EQ(printer.canvas.documents, 1);
}

TEST_F(PrintSurfaceTest, FailureLeavesTheCursor) {
    printer.canvas.Fails = [](int) { return true; };
    EXPECT_THROW(surface.Print("a"), RuntimeError);
    EXPECT_THROW(surface.PrintLine("a"), RuntimeError);
    EXPECT_THROW(surface.Newpage(), RuntimeError);
    EXPECT_EQ(surface.CurrentX(), 100);
    EXPECT_EQ(surface.CurrentY(), 200);
    EXPECT_THROW(surface.EndDoc(), RuntimeError);
    EXPECT_EQ(surface.CurrentY(), 0); // the next document begins at the top all the same
}

TEST_F(PrintSurfaceTest, PaperBelongsToThePrinter) {
    surface.SetPaperSize(5);
    EXPECT_THAT(printer.papers, ElementsAre(5));
    EXPECT_THROW(host.preview.SetPaperSize(5), RuntimeError);
}

TEST_F(PrintSurfaceTest, DrawingWithoutASurfaceIsAnError) {
    EXPECT_EQ(&SurfaceOf(state), &surface);
    state.Surface = nullptr;
    EXPECT_THROW(SurfaceOf(state), RuntimeError);
}

} // namespace composition
