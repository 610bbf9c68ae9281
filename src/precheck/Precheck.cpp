#include "precheck/Precheck.h"

#include <iterator>

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
    Append(findings, CheckDocument(state, platform, intent, printer ? printer->Sheet : std::nullopt));
    SortFindings(findings);
    return findings;
}

ChosenPrinter Choose(machine::Platform& platform, int index, std::int16_t paper, std::int16_t orientation) {
    return {platform.Printers.Condition(index), platform.Printers.SheetOf(index, paper, orientation)};
}

} // namespace precheck
