#include "composition/DocumentRun.h"

#include "base/Numbers.h"
#include "base/Resume.h"
#include "composition/CalibrationReport.h"
#include "composition/NameList.h"
#include "composition/OpenPrinter.h"
#include "composition/PrintSurface.h"
#include "composition/TestFormRun.h"
#include "forms/Desktop.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "state/AppState.h"
#include "state/Settings.h"

namespace composition {

using base::Resume;

namespace {

constexpr std::int16_t AllDone = 100; ///< percent

/// The printable area begins at the offset, so the corner of the paper lies before it.
std::int32_t PaperCorner(std::int32_t physicalOffset) {
    return base::ToInt32(-static_cast<double>(physicalOffset));
}

} // namespace

void DrawDocument(state::AppState& state, machine::Platform& platform, RunHost& host, std::int16_t iMethod,
                  std::int32_t aantal, std::int16_t copies) {
    Twips corner;
    Resume([&] { corner.y = PaperCorner(state.PhysicalOffsetY); });
    Resume([&] { corner.x = PaperCorner(state.PhysicalOffsetX); });
    switch (iMethod) {
    case DocumentTestForms:
        TestFormRun(state, platform, host, corner).Print(aantal, copies);
        break;
    case DocumentNameList:
        PrintNameList(state);
        break;
    case DocumentCalibration:
        PrintCalibrationReport(state, platform.Locale);
        break;
    default:
        break;
    }
}

void ComposeJob(state::AppState& state, machine::Platform& platform, PrinterSurface& printer, RunHost& host,
                bool preview, const std::function<void()>& draw) {
    platform.Desktop.HourglassOn();
    state::LaadInstellingen(state, platform.Registry, false);

    if (preview) {
        Resume([&] { host.OpenPreview(FaseOpen); });
    } else {
        Resume([&] { OpenPrinter(state, platform, printer); });
        if (!state.MatrixPrinter && state.OverrulePaperSize) {
            Resume([&] { SurfaceOf(state).SetPaperSize(machine::PaperLegal); });
        }
    }

    draw();
    Resume([&] { host.UpdatePercentage(AllDone); });
    Resume([&] { SurfaceOf(state).SetFontSize(ListFontPoints); });
    Resume([&] { SurfaceOf(state).EndDoc(); });
    if (preview) {
        Resume([&] { host.ShowPreview(); });
        Resume([&] { host.OpenPreview(FaseClose); });
    }
    Resume([&] { platform.Desktop.HourglassOff(); });
}

void ComposeDocument(state::AppState& state, machine::Platform& platform, PrinterSurface& printer,
                     RunHost& host, const DocumentJob& job) {
    ComposeJob(state, platform, printer, host, job.blnPrintPreview, [&] {
        std::int32_t aantal = 0;
        Resume([&] {
            if (host.CountText().empty()) {
                host.SetCountText("1");
            }
        });
        Resume([&] { aantal = base::Int32OfText(host.CountText()); });
        DrawDocument(state, platform, host, job.iMethod, aantal, job.num_copies);
    });
}

} // namespace composition
