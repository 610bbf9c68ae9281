#include <array>
#include <string>

#include "composition/DocumentRun.h"
#include "machine/Platform.h"
#include "precheck/Checks.h"
#include "precheck/CurrentSettings.h"
#include "precheck/FindingKinds.h"
#include "precheck/Lengths.h"
#include "precheck/Stationery.h"
#include "precheck/Wording.h"
#include "state/AppState.h"

namespace precheck {

namespace {

// Bits of PRINTER_INFO_2::Status.
constexpr std::uint32_t StatusPaused = 0x1;
constexpr std::uint32_t StatusPaperOut = 0x10;
constexpr std::uint32_t StatusOffline = 0x80;
constexpr std::uint32_t StatusNotAvailable = 0x1000;

struct Trouble {
    std::uint32_t Bit;
    std::string_view Words;
};
constexpr std::array<Trouble, 8> Troubles = {{
    {0x2, {}}, // an error that nobody names
    {0x8, "vastgelopen papier"},
    {0x40, "een probleem met het papier"},
    {0x800, "een volle uitvoerbak"},
    {0x40000, "geen toner of inkt"},
    {0x100000, "er moet iemand bij komen"},
    {0x200000, "te weinig geheugen"},
    {0x400000, "een open klep"},
}};

constexpr int LeastDotsPerInch = 180;
/// What papers of one name differ by from maker to maker.
constexpr double SheetToleranceMillimetres = 0.5;

/// "210 x 304,8 mm"
std::string SizeText(const machine::SheetArea& sheet) {
    return ShortDecimal(ToMillimetres(sheet.Width)) + " x " + ShortDecimal(ToMillimetres(sheet.Height)) +
           " mm";
}

void CheckTroubles(const machine::PrinterCondition& printer, Findings& findings) {
    bool any = false;
    std::string words;
    for (const Trouble& trouble : Troubles) {
        if ((printer.Status & trouble.Bit) == 0) {
            continue;
        }
        any = true;
        if (!trouble.Words.empty()) {
            words.append(words.empty() ? ": " : ", ").append(trouble.Words);
        }
    }
    if (any) {
        findings.push_back(MakeFinding(FindingKind::PrinterError, {Quoted(printer.Name), words}));
    }
}

void CheckCondition(const machine::PrinterCondition& printer, const Intent& intent, Findings& findings) {
    const std::string name = Quoted(printer.Name);
    const auto is = [&](std::uint32_t bit) { return (printer.Status & bit) != 0; };
    if (!printer.Reachable || is(StatusOffline)) {
        findings.push_back(MakeFinding(FindingKind::PrinterUnreachable, {name}));
    }
    if (is(StatusPaused)) {
        findings.push_back(MakeFinding(FindingKind::PrinterPaused, {name}));
    }
    if (is(StatusNotAvailable)) {
        findings.push_back(MakeFinding(FindingKind::PrinterRejecting, {name}));
    }
    if (is(StatusPaperOut)) {
        findings.push_back(MakeFinding(FindingKind::PrinterNoPaper, {name}));
    }
    CheckTroubles(printer, findings);
    const bool forms = intent.Document == composition::DocumentTestForms;
    for (const std::string& imposed : printer.Imposed) {
        Finding finding = MakeFinding(FindingKind::PrinterImposed, {name, Shown(imposed)});
        finding.Gravity = forms ? Gravity::Spoils : Gravity::LookAt;
        findings.push_back(std::move(finding));
    }
    if (forms && printer.DotsPerInch > 0 && printer.DotsPerInch < LeastDotsPerInch) {
        findings.push_back(
            MakeFinding(FindingKind::PrinterCoarse, {name, std::to_string(printer.DotsPerInch)}));
    }
}

void CheckSheet(const state::AppState& state, const machine::SheetArea& sheet, Findings& findings) {
    const machine::SheetArea stationery = StationeryOf(state);
    const auto isLess = [](double side, double needed) {
        return ToMillimetres(needed - side) > SheetToleranceMillimetres;
    };
    if (isLess(sheet.Width, stationery.Width) || isLess(sheet.Height, stationery.Height)) {
        Finding finding = MakeFinding(FindingKind::SheetTooSmall, {SizeText(sheet), SizeText(stationery)});
        finding.Sketch.Sheet = sheet;
        finding.Sketch.Forms = FormsOf(state);
        findings.push_back(std::move(finding));
    }
}

} // namespace

std::int16_t PaperOf(const state::AppState& state, std::int16_t chosen) {
    return !state.MatrixPrinter && state.OverrulePaperSize ? machine::PaperLegal : chosen;
}

Findings CheckPrinter(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                      const ChosenPrinter& printer) {
    Findings findings;
    CheckCondition(printer.Condition, intent, findings);
    if (intent.Document == composition::DocumentTestForms) {
        const CurrentSettings current = ReadCurrentSettings(state, platform.Registry);
        if (printer.Sheet && IsKnownType(current.State)) {
            CheckSheet(current.State, *printer.Sheet, findings);
        }
        // A printer without that paper keeps the one that was chosen.
        if (printer.MeasuredSheet && PaperOf(state, 0) == machine::PaperLegal) {
            findings.push_back(
                MakeFinding(FindingKind::SheetForced, {SettingIs("PrinterOverrulePaperSize", "1")}));
        }
    }
    SortFindings(findings);
    return findings;
}

} // namespace precheck
