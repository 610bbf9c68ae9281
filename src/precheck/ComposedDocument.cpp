#include "precheck/ComposedDocument.h"

#include <algorithm>

#include "composition/DocumentRun.h"
#include "composition/OpenPrinter.h"
#include "composition/PrinterMeasures.h"
#include "composition/RunHost.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "precheck/DrawnDocument.h"
#include "precheck/Precheck.h"
#include "precheck/SheetPrinter.h"
#include "precheck/SteadyChance.h"
#include "state/AppState.h"

namespace precheck {

namespace {

constexpr std::int32_t MostForms = 250;

/// A run that nobody watches.
class NoHost final : public composition::RunHost {
  public:
    std::string CountText() override { return {}; }
    void SetCountText(const std::string&) override {}
    void UpdatePercentage(std::int16_t) override {}
    void OpenPreview(std::int16_t) override {}
    void ShowPreview() override {}
};

} // namespace

bool IsComposedWhole(const Intent& intent) {
    return intent.Document != composition::DocumentTestForms ||
           std::int64_t{intent.Forms} * std::max<std::int64_t>(intent.Copies, 1) <= MostForms;
}

void ComposeOn(DrawnDocument& document, state::AppState& state, const machine::Platform& real,
               const Intent& intent, const machine::SheetArea& measured) {
    SheetPrinters printers;
    SheetPrinter printer(measured, document.Paper());
    SteadyChance chance;
    machine::Platform platform = {real.Desktop, real.Registry,         real.Locale, real.Clock,
                                  chance,       real.Spooler,          printers,    printer,
                                  real.Bitmaps, real.WindowProcedures, real.Fonts};
    DrawnSurface surface(printer.Drawing, document);
    state.PrinterOrientation = intent.Orientation;
    if (intent.Orientation == machine::Portrait) {
        state.LeftMargin = composition::LeftMarginPortrait;
    } else if (intent.Orientation == machine::Landscape) {
        state.LeftMargin = composition::LeftMarginLandscape;
    }
    composition::LeesPrinterMaten(state, platform);
    state.Surface = &surface;
    surface.SetFontSize(composition::ListFontPoints);
    state.SurfaceWidth = state.PageWidth;
    state.SurfaceHeight = state.PageHeight;
    state.SurfaceLeft = 0;
    state.SurfaceTop = 0;

    NoHost host;
    const std::int32_t copies = std::clamp<std::int32_t>(intent.Copies, 0, MostForms);
    const std::int32_t forms = std::min(intent.Forms, MostForms / std::max(copies, 1));
    composition::DrawDocument(state, platform, host, intent.Document, forms,
                              static_cast<std::int16_t>(copies));
    state.Surface = nullptr;
}

} // namespace precheck
