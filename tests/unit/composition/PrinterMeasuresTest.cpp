#include "composition/PrinterMeasures.h"

#include "CompositionTest.h"

namespace composition {

using testing::ElementsAre;
using testing::IsEmpty;

class PrinterMeasuresTest : public CompositionTest {
  protected:
    PrinterMeasuresTest() {
        printer.Drawing.Font.Size = 12;
        state.PageWidth = state.PageHeight = state.LineHeight = -1;
        state.PhysicalOffsetX = state.PhysicalOffsetY = -1;
    }
};

TEST_F(PrinterMeasuresTest, ReadsTheMeasures) {
    printer.caps[machine::CapsPhysicalOffsetY] = 150;
    LeesPrinterMaten(state, services);
    EXPECT_EQ(state.PageWidth, 11424);
    EXPECT_EQ(state.PageHeight, 16358); // 16358.4
    EXPECT_EQ(state.LineHeight, 24 * 12);
    EXPECT_EQ(state.PhysicalOffsetX, 233); // 100 / 600 x 1400
    EXPECT_EQ(state.PhysicalOffsetY, 350);
}

TEST_F(PrinterMeasuresTest, ReadsTheOffsetsFromTheirOwnResolutions) {
    printer.caps = {{machine::CapsLogPixelsX, 300},
                    {machine::CapsLogPixelsY, 600},
                    {machine::CapsPhysicalOffsetX, 30},
                    {machine::CapsPhysicalOffsetY, 90}};
    LeesPrinterMaten(state, services);
    EXPECT_EQ(state.PhysicalOffsetX, 140);
    EXPECT_EQ(state.PhysicalOffsetY, 210);
}

TEST_F(PrinterMeasuresTest, SetsTheOrientationThatIsAskedFor) {
    state.PrinterOrientation = 0;
    LeesPrinterMaten(state, services);
    EXPECT_THAT(printer.orientations, IsEmpty());
    state.PrinterOrientation = 2;
    LeesPrinterMaten(state, services);
    EXPECT_THAT(printer.orientations, ElementsAre(2));
}

TEST_F(PrinterMeasuresTest, DoesNothingWithoutAPrinter) {
    printers.count = 0;
    state.PrinterOrientation = 1;
    LeesPrinterMaten(state, services);
    EXPECT_THAT(printer.orientations, IsEmpty());
    EXPECT_EQ(state.PageWidth, -1);
    EXPECT_EQ(state.PhysicalOffsetX, -1);
    printers.failure = 482;
    LeesPrinterMaten(state, services);
    EXPECT_EQ(state.PageWidth, -1);
}

TEST_F(PrinterMeasuresTest, GoesOnBehindAFailingStep) {
    state.PrinterOrientation = 2;
    printer.failures = {{"Orientation", {380, ""}}, {"ScaleWidth", {482, ""}}, {"Page", {482, ""}}};
    LeesPrinterMaten(state, services);
    EXPECT_EQ(state.PageWidth, -1);
    EXPECT_EQ(state.PageHeight, 16358);
    EXPECT_EQ(state.LineHeight, -1);
    EXPECT_EQ(state.PhysicalOffsetX, 233);

    printer.failures = {{"GetDeviceCaps", {482, ""}}};
    state.PhysicalOffsetX = -1;
    LeesPrinterMaten(state, services);
    EXPECT_EQ(state.PageWidth, 11424);
    EXPECT_EQ(state.PhysicalOffsetX, -1);
}

TEST_F(PrinterMeasuresTest, ImpossibleMeasuresKeepTheOldValue) {
    printer.caps[machine::CapsLogPixelsX] = 0;
    printer.caps[machine::CapsLogPixelsY] = 0;
    printer.caps[machine::CapsPhysicalOffsetY] = 0;
    printer.scaleWidth = 1e12;
    LeesPrinterMaten(state, services);
    EXPECT_EQ(state.PhysicalOffsetX, -1);
    EXPECT_EQ(state.PhysicalOffsetY, -1);
    EXPECT_EQ(state.PageWidth, -1);
    EXPECT_EQ(state.PageHeight, 16358);
}

} // namespace composition
