#include "precheck/SheetPrinter.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "composition/PrinterMeasures.h"
#include "memory/MemoryPlatform.h"
#include "state/AppState.h"
#include "support/FakeCanvas.h"

namespace precheck {

/// The measures that a run takes are those that it would take from the printer itself.
TEST(SheetPrinterTest, HasTheMeasuresOfTheRealPrinter) {
    for (const int offset : {0, 1, 99, 100, 101, 333}) {
        memory::MemoryPlatform memory;
        memory::PrintQueue queue;
        queue.Name = "Laser";
        queue.Offset = {offset, offset + 1};
        memory.InstallPrinter(queue);
        machine::Platform& services = memory.Services();
        state::AppState real;
        real.PrinterOrientation = machine::Portrait;
        composition::LeesPrinterMaten(real, services);

        const auto sheet = services.Printers.SheetOf(0, 9, machine::Portrait);
        ASSERT_TRUE(sheet);
        support::FakeCanvas canvas;
        SheetPrinter printer(*sheet, canvas);
        SheetPrinters printers;
        machine::Platform drawn = {
            services.Desktop, services.Registry,         services.Locale, services.Clock,
            services.Random,  services.Spooler,          printers,        printer,
            services.Bitmaps, services.WindowProcedures, services.Fonts};
        state::AppState composed;
        composed.PrinterOrientation = machine::Portrait;
        composition::LeesPrinterMaten(composed, drawn);

        EXPECT_EQ(composed.PhysicalOffsetX, real.PhysicalOffsetX);
        EXPECT_EQ(composed.PhysicalOffsetY, real.PhysicalOffsetY);
        EXPECT_NEAR(composed.PageWidth, real.PageWidth, 2);
        EXPECT_NEAR(composed.PageHeight, real.PageHeight, 2);
    }
}

TEST(SheetPrinterTest, HasTheFontThatEveryPrinterBeginsWith) {
    support::FakeCanvas canvas;
    EXPECT_EQ(SheetPrinter({}, canvas).Drawing.Font, machine::PrintersOwnFont);
}

TEST(SheetPrinterTest, TellsNoOtherMeasureOfADevice) {
    support::FakeCanvas canvas;
    SheetPrinter printer({}, canvas);
    EXPECT_THROW(printer.GetDeviceCaps(0), base::RuntimeError);
}

} // namespace precheck
