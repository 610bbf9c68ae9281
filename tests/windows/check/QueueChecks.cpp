#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desktop/windows/Win32.h"

#include "base/RuntimeError.h"
#include "base/Units.h"
#include "desktop/windows/Background.h"
#include "desktop/windows/Inquiry.h"
#include "desktop/windows/PrinterQuestions.h"
#include "desktop/windows/WinPrinter.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

int PlaceOf(WinPrinters& printers, const std::string& name) {
    int place = 0;
    while (place < printers.Count() && printers.Item(place).DeviceName != name) {
        ++place;
    }
    return place;
}

/// What is asked in the background is known in a moment, or on a busy machine in some more.
template <class Known>
void WaitUntil(Known known) {
    for (int looks = 0; looks < 3000 && !known(); ++looks) {
        ::Sleep(20);
    }
}

/// The sheet as a document is measured with once the printer is the current one.
machine::SheetArea Measured(WinPrinters& printers, int place, std::int16_t paper, std::int16_t orientation) {
    WinPrinter printer(printers, [](const std::string& text) { Check(false, text); });
    printer.Assign(place);
    printer.SetPaperSize(paper);
    printer.SetOrientation(orientation);
    const double twips = base::TwipsPerInch / printer.GetDeviceCaps(LOGPIXELSX);
    machine::SheetArea area;
    area.Width = printer.Width();
    area.Height = printer.Height();
    area.Left = printer.GetDeviceCaps(PHYSICALOFFSETX) * twips;
    area.Top = printer.GetDeviceCaps(PHYSICALOFFSETY) * twips;
    area.Right = area.Left + printer.ScaleWidth();
    area.Bottom = area.Top + printer.ScaleHeight();
    return area;
}

void CheckSheet(WinPrinters& printers, int place, std::int16_t paper, std::int16_t orientation) {
    const std::string what =
        "paper " + std::to_string(paper) + (orientation == machine::Landscape ? " on its side" : "");
    std::optional<machine::SheetArea> told;
    WaitUntil([&] { return (told = printers.SheetOf(place, paper, orientation)).has_value(); });
    Check(told.has_value(), what + " is known");
    const machine::SheetArea area = told.value_or(machine::SheetArea());
    const machine::SheetArea measured = Measured(printers, place, paper, orientation);
    CheckNear(area.Width, measured.Width, 0.01, what + " is as wide as the printer measures it");
    CheckNear(area.Height, measured.Height, 0.01, what + " is as high");
    CheckNear(area.Left, measured.Left, 0.01, what + " begins at the left where the printer does");
    CheckNear(area.Top, measured.Top, 0.01, what + " and above");
    CheckNear(area.Right, measured.Right, 0.01, what + " ends at the right where the printer does");
    CheckNear(area.Bottom, measured.Bottom, 0.01, what + " and below");
}

void CheckSheets(WinPrinters& printers) {
    const int place = PlaceOf(printers, "Kantoor");
    const std::vector<std::byte> before = DriverSettings(L"Kantoor").ForDocument();
    for (const int paper : {DMPAPER_A4, DMPAPER_LEGAL, DMPAPER_A5}) {
        CheckSheet(printers, place, static_cast<std::int16_t>(paper), machine::Portrait);
        CheckSheet(printers, place, static_cast<std::int16_t>(paper), machine::Landscape);
    }
    Check(!AskSheet("Kantoor", 12345, machine::Portrait), "a paper that the printer lacks has no sheet");
    Check(!AskSheet("Zolder", DMPAPER_A4, machine::Portrait), "nor has a printer that is not there");
    Check(DriverSettings(L"Kantoor").ForDocument() == before, "to ask for sheets changes no settings");
    CheckRaises(
        base::ErrorSubscriptOutOfRange, [&] { printers.SheetOf(99, DMPAPER_A4, machine::Portrait); },
        "no printer of this number has a sheet");
}

void CheckConditions(WinPrinters& printers) {
    machine::PrinterCondition condition;
    const int place = PlaceOf(printers, "Kantoor");
    WaitUntil([&] { return (condition = printers.Condition(place)).DotsPerInch != 0; });
    CheckEqual(condition.Name, "Kantoor", "a condition has the printer's name");
    Check(condition.Reachable, "the printer can be reached");
    CheckEqual(condition.Status, 0, "nothing is wrong with it");
    CheckEqual(condition.DotsPerInch, 600, "it has its dots to the inch");
    CheckEqual(static_cast<long long>(condition.Imposed.size()), 0,
               "no document of the program is printed by its defaults");
    Check(!AskCondition("Zolder").Reachable, "a printer that is not there cannot be reached");
    CheckRaises(
        base::ErrorSubscriptOutOfRange, [&] { printers.Condition(-1); },
        "no printer of this number has a condition");
}

/// The printer prints on both sides by default.
void CheckDocumentSettings() {
    DriverSettings settings(L"Kantoor");
    const auto mode = [](const std::vector<std::byte>& bytes) {
        return *reinterpret_cast<const DEVMODEW*>(bytes.data());
    };
    const auto checkOneSide = [&](const std::string& what) {
        CheckEqual(mode(settings.ForDocument()).dmDuplex, DMDUP_SIMPLEX,
                   "a document is measured on one side " + what);
        CheckEqual(mode(settings.ForPrinting()).dmDuplex, DMDUP_SIMPLEX, "and printed so");
    };
    CheckEqual(settings.Mode().dmDuplex, DMDUP_VERTICAL, "what is stored is told as it is");
    checkOneSide("whatever is stored");
    settings.Set(DM_DUPLEX, &DEVMODEW::dmDuplex, DMDUP_HORIZONTAL);
    CheckEqual(settings.Mode().dmDuplex, DMDUP_HORIZONTAL, "the sheet can be turned over its short edge");
    checkOneSide("whatever the edge");
    settings.Set(DM_SCALE, &DEVMODEW::dmScale, 80);
    CheckEqual(settings.Mode().dmScale, 80, "a scale can be stored");
    CheckEqual(mode(settings.ForDocument()).dmScale, 100, "a document is measured in full size");
    CheckEqual(mode(settings.ForPrinting()).dmScale, 100, "and printed so");
    CheckEqual(mode(settings.ForPrinting()).dmCopies, 1, "and once");
    CheckEqual(DriverSettings(L"Kantoor").Mode().dmDuplex, DMDUP_VERTICAL, "none of it is stored");
}

/// A question that does not come back holds nobody up.
void CheckInquiry() {
    using std::chrono::milliseconds;
    const ::HANDLE answers = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    Inquiry<int> inquiry;
    const auto slow = [answers] {
        ::WaitForSingleObject(answers, INFINITE);
        return 1;
    };
    Check(!inquiry.Ask(slow, milliseconds(0)), "a question without an answer has none");
    Check(!inquiry.Ask([] { return 2; }, milliseconds(0)), "and no other is asked meanwhile");
    WaitUntil([&] { return inquiry.Waiting() > milliseconds(0); });
    Check(inquiry.Waiting() > milliseconds(0), "it tells that it waits");
    ::SetEvent(answers);
    WaitUntil([&] { return inquiry.Ask([] { return 2; }, std::chrono::hours(1)).has_value(); });
    CheckEqual(inquiry.Ask([] { return 2; }, std::chrono::hours(1)).value_or(0), 1, "the answer comes later");
    CheckEqual(inquiry.Waiting().count(), 0, "then nothing is waited for");
    WaitUntil([&] { return inquiry.Ask([] { return 3; }, milliseconds(0)) == 3; });
    CheckEqual(inquiry.Ask([] { return 3; }, milliseconds(0)).value_or(0), 3,
               "an old answer is asked for anew");
    ::CloseHandle(answers);
}

/// True if a call that fails has ended like any other, beside one that nobody waits for.
bool CallInBackground() {
    const Background left([] { ::Sleep(1); });
    const Background failing([] { throw base::SubscriptOutOfRange(); });
    const auto ended = [&failing] { return failing.HasEnded(std::chrono::milliseconds(0)); };
    WaitUntil(ended);
    return ended();
}

void CheckBackground() {
    constexpr int calls = 300;
    Check(CallInBackground(), "a call that fails has ended");
    DWORD before = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &before);
    int ended = 0;
    for (int i = 0; i < calls; ++i) {
        ended += CallInBackground() ? 1 : 0;
    }
    CheckEqual(ended, calls, "as each of many does");
    DWORD after = 0;
    WaitUntil(
        [&] { return ::GetProcessHandleCount(::GetCurrentProcess(), &after) != FALSE && after <= before; });
    Check(after <= before, "they leave no handle behind");
}

} // namespace

void CheckQueues() {
    CheckInquiry();
    CheckBackground();
    CheckDocumentSettings();
    WinPrinters printers;
    CheckSheets(printers);
    CheckConditions(printers);
}
