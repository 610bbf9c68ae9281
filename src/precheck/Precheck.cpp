#include "precheck/Precheck.h"

#include <iterator>
#include <optional>
#include <utility>

#include "machine/Platform.h"
#include "precheck/Checks.h"

namespace precheck {

namespace {

void Append(Findings& findings, Findings more) {
    findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
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

ChosenPrinter Choose(machine::Platform& platform, int index, std::int16_t paper, std::int16_t orientation) {
    return {platform.Printers.Condition(index), platform.Printers.SheetOf(index, paper, orientation)};
}

ChosenPrinter ChooseForRun(const state::AppState& state, machine::Platform& platform, int index,
                           std::int16_t chosen, std::int16_t orientation) {
    ChosenPrinter printer = Choose(platform, index, chosen, orientation);
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
