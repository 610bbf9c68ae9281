#include "precheck/Precheck.h"

#include <iterator>
#include <optional>
#include <utility>

#include "base/Resume.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "precheck/Checks.h"

namespace precheck {

namespace {

void Append(Findings& findings, Findings more) {
    findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
}

std::int16_t OwnOrientation(machine::Platform& platform, int index) {
    std::int16_t orientation = machine::Portrait;
    base::Resume([&] {
        if (platform.Printer.DeviceName() == platform.Printers.Item(index).DeviceName) {
            orientation = platform.Printer.Orientation();
        }
    });
    return orientation;
}

} // namespace

Findings CheckAll(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                  const std::optional<ChosenPrinter>& printer) {
    Findings findings = CheckSettings(state, platform, intent);
    if (printer) {
        Append(findings, CheckPrinter(state, platform, intent, *printer));
    }
    Append(findings, CheckDocument(state, platform, intent, printer ? printer->Sheet : std::nullopt,
                                   printer ? printer->MeasuredSheet : std::nullopt));
    SortFindings(findings);
    return findings;
}

ChosenPrinter ChooseForRun(const state::AppState& state, machine::Platform& platform, int index,
                           std::int16_t chosen, std::int16_t wanted) {
    const std::int16_t orientation = wanted != 0 ? wanted : OwnOrientation(platform, index);
    ChosenPrinter printer = {platform.Printers.Condition(index),
                             platform.Printers.SheetOf(index, chosen, orientation)};
    const std::int16_t paper = PaperOf(state, chosen);
    if (paper == chosen) {
        return printer;
    }
    // A run measures the printer before it forces the paper, and one that lacks it keeps what it had.
    if (const auto forced = platform.Printers.SheetOf(index, paper, orientation)) {
        printer.MeasuredSheet = std::exchange(printer.Sheet, forced);
    }
    return printer;
}

} // namespace precheck
