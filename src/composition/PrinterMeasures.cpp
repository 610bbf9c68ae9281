#include "composition/PrinterMeasures.h"

#include "base/Numbers.h"
#include "base/Resume.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "state/AppState.h"

namespace composition {

using base::Resume;

namespace {

/// Not 1440: existing calibrations depend on this factor.
constexpr double OffsetUnitsPerInch = 1400;

std::int32_t PhysicalOffset(machine::Printer& printer, int offsetItem, int dotsPerInchItem) {
    const double offset = printer.GetDeviceCaps(offsetItem);
    const double dotsPerInch = printer.GetDeviceCaps(dotsPerInchItem);
    return base::ToInt32(offset / dotsPerInch * OffsetUnitsPerInch);
}

} // namespace

void LeesPrinterMaten(state::AppState& state, machine::Platform& platform) {
    machine::Printer& printer = platform.Printer;
    int printers = 0;
    Resume([&] { printers = platform.Printers.Count(); });
    if (printers <= 0) {
        return;
    }

    if (state.PrinterOrientation != 0) {
        Resume([&] { printer.SetOrientation(state.PrinterOrientation); });
    }
    Resume([&] { state.PageWidth = base::ToInt32(printer.ScaleWidth()); });
    Resume([&] { state.PageHeight = base::ToInt32(printer.ScaleHeight()); });
    Resume([&] { state.LineHeight = PrinterLineHeight(platform); });
    Resume([&] {
        state.PhysicalOffsetX =
            PhysicalOffset(printer, machine::CapsPhysicalOffsetX, machine::CapsLogPixelsX);
    });
    Resume([&] {
        state.PhysicalOffsetY =
            PhysicalOffset(printer, machine::CapsPhysicalOffsetY, machine::CapsLogPixelsY);
    });
}

std::int32_t PrinterLineHeight(machine::Platform& platform) {
    machine::Printer& printer = platform.Printer;
    return base::ToInt32(printer.Page().MeasureText("X", printer.Drawing.Font).Height);
}

} // namespace composition
