#include "composition/PrinterMeasures.h"

#include "base/Numbers.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "base/Resume.h"
#include "state/AppState.h"

namespace composition {

using platform::Resume;

namespace {

/// Not 1440: existing calibrations depend on this factor.
constexpr double OffsetUnitsPerInch = 1400;

std::int32_t PhysicalOffset(platform::Printer& printer, int offsetItem, int dotsPerInchItem) {
    const double offset = printer.GetDeviceCaps(offsetItem);
    const double dotsPerInch = printer.GetDeviceCaps(dotsPerInchItem);
    return platform::ToInt32(offset / dotsPerInch * OffsetUnitsPerInch);
}

} // namespace

void LeesPrinterMaten(wizard::AppState& state, platform::Platform& platform) {
    platform::Printer& printer = platform.Printer;
    int printers = 0;
    Resume([&] { printers = platform.Printers.Count(); });
    if (printers <= 0) {
        return;
    }

    if (state.PrinterOrientation != 0) {
        Resume([&] { printer.SetOrientation(state.PrinterOrientation); });
    }
    Resume([&] { state.PageWidth = platform::ToInt32(printer.ScaleWidth()); });
    Resume([&] { state.PageHeight = platform::ToInt32(printer.ScaleHeight()); });
    Resume([&] { state.LineHeight = PrinterLineHeight(platform); });
    Resume([&] {
        state.PhysicalOffsetX =
            PhysicalOffset(printer, platform::CapsPhysicalOffsetX, platform::CapsLogPixelsX);
    });
    Resume([&] {
        state.PhysicalOffsetY =
            PhysicalOffset(printer, platform::CapsPhysicalOffsetY, platform::CapsLogPixelsY);
    });
}

std::int32_t PrinterLineHeight(platform::Platform& platform) {
    platform::Printer& printer = platform.Printer;
    return platform::ToInt32(printer.Page().MeasureText("X", printer.Drawing.Font).Height);
}

} // namespace composition
