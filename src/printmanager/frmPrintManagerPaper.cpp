// Paper and bin: the lists, the preparation before a run, and the way back.

#include <string>

#include "base/Numbers.h"
#include "base/Resume.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/Desktop.h"
#include "machine/Printer.h"
#include "machine/Spooler.h"
#include "printmanager/ClearAtEnd.h"
#include "printmanager/DevModeField.h"
#include "printmanager/PrintLog.h"
#include "printmanager/frmPrintManager.h"
#include "state/Settings.h"

namespace printmanager {

namespace {

// Above these values of PrinterInit a preparation is repeated, logged and repeated once more.
constexpr std::int32_t RepeatAbove = 1000;
constexpr std::int32_t LogAbove = 1001;
constexpr std::int32_t RepeatAgainAbove = 2000;

constexpr int StandingPosition = 0;
constexpr int LyingPosition = 1;

/// The identifier at a combo's position; -1 and anything outside the list is an error.
std::int16_t IdAt(const std::vector<std::int16_t>& ids, int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= ids.size()) {
        throw base::SubscriptOutOfRange();
    }
    return ids[static_cast<std::size_t>(position)];
}

/// Fills a combo with the names and selects the one whose identifier is `current`; the first one if there is
/// none.
void FillCombo(forms::ComboBox& combo, const std::vector<std::string>& names,
               const std::vector<std::int16_t>& ids, std::int16_t current) {
    int selected = 0;
    combo.Clear();
    for (std::size_t i = 0; i < names.size(); ++i) {
        combo.AddItem(names[i]);
        if (ids[i] == current) {
            selected = static_cast<int>(i);
        }
    }
    combo.SetListIndex(selected);
}

std::string Folded(const std::string& name) {
    return base::text::Lower(base::text::Trim(name));
}

bool IsNone(const std::string& position) {
    return base::NumericValue(position) == -1;
}

int Position(const std::string& text) {
    return base::Int32OfText(text);
}

} // namespace

void frmPrintManager::LoadPrinterLists(const std::string& name, bool& failed) {
    const std::string printer = name.empty() ? objPrinter.DeviceName : name;
    PaperAndBins lists;
    if (GetPaperAndBins(platform_, printer, lists) != 0) {
        failed = true;
        return;
    }
    // A selection made here is no choice of the user.
    blnBusy = true;
    const ClearAtEnd notBusy(blnBusy);
    iPaperIds = lists.PaperIds;
    ptPaperSizes = lists.PaperSizes;
    FillCombo(cboPrinterSelect(1), lists.PaperNames, iPaperIds, lists.CurrentPaper);
    iBinIds = lists.BinIds;
    FillCombo(cboPrinterSelect(2), lists.BinNames, iBinIds, lists.CurrentBin);
    const std::int16_t orientation = GetDevModeField(platform_.Spooler, printer, machine::DM_ORIENTATION);
    cboPrinterSelect(3).SetListIndex(orientation == machine::Landscape ? LyingPosition : StandingPosition);
}

bool frmPrintManager::AssignPrinter(const std::string& name) {
    const int position = FindPrinter(platform_.Printers, name);
    if (position == -1) {
        return false;
    }
    platform_.Printer.Assign(position);
    return true;
}

void frmPrintManager::SetPaper(const std::string& name, int position, bool yield) {
    const std::int16_t paper = IdAt(iPaperIds, position);
    SetDevModeField(platform_, name, machine::DM_PAPERSIZE, paper);
    if (yield) {
        Desktop().Yield();
    }
    platform_.Printer.SetPaperSize(paper);
    if (yield) {
        Desktop().Yield();
    }
}

void frmPrintManager::SetBin(const std::string& name, int position, bool yield) {
    const std::int16_t bin = IdAt(iBinIds, position);
    SetDevModeField(platform_, name, machine::DM_DEFAULTSOURCE, bin);
    if (yield) {
        Desktop().Yield();
    }
    platform_.Printer.SetPaperBin(bin);
    if (yield) {
        Desktop().Yield();
    }
}

void frmPrintManager::Wait() {
    const std::int32_t count = state_.PrinterInit;
    for (std::int32_t i = 0; i < count; ++i) {
        Desktop().Yield();
    }
}

void frmPrintManager::PreparePrinter(const std::string& name) {
    if (name.empty()) {
        return;
    }
    const bool logging = state_.PrinterInit > LogAbove;
    if (logging) {
        base::Resume([&] { LogPreparation(name); });
    }
    try {
        RunPreparation(name, logging);
    } catch (const base::RuntimeError&) { // the run goes on with the printer as it is
        blnBusy = false;
    }
}

/// One pass: the chosen paper and bin go into the stored defaults and onto the printer object, which then
/// takes up its defaults anew. False if the printer has no lists to choose from.
bool frmPrintManager::PreparePass(const std::string& name, bool logging) {
    if (AssignPrinter(name)) {
        if (logging) {
            WriteLogLine(platform_, "Printer gevonden -> " + platform_.Printer.DeviceName());
        }
        const bool matrix = chkMatrixPrinter.Value();
        state::SchrijfInstelling(state_, platform_.Registry, "MatrixPrinter", matrix ? "1" : "0");
        state_.MatrixPrinter = matrix;
    }
    if (logging) {
        LogPaperAndBin("");
    }
    if (blnNoConnection || cboPrinterSelect(2).ListCount() == 0) {
        return false;
    }
    blnBusy = true;
    if (Folded(name) != Folded(cboPrinterSelect(0).Text())) {
        bool failed = false;
        LoadPrinterLists(name, failed);
    }
    SetPaper(name, cboPrinterSelect(1).ListIndex(), true);
    SetBin(name, cboPrinterSelect(2).ListIndex(), true);
    if (logging) {
        WriteLogLine(platform_, "Papierformaat en papier lade zijn nu gezet.");
    }
    Wait();
    const int position = FindPrinter(platform_.Printers, name);
    if (position != -1) {
        if (logging) {
            WriteLogLine(platform_, "1e Printer.Refresh correct doorlopen");
        }
        platform_.Printer.Assign(position);
    }
    if (logging) {
        LogPaperAndBin("Na Printer.Refresh (1)");
    }
    Wait();
    return true;
}

/// Some drivers take a change of bin or paper only the second or third time. A later pass starts from what
/// the driver then reports.
void frmPrintManager::RunPreparation(const std::string& name, bool logging) {
    bool retried1 = false;
    bool retried2 = false;
    bool failed = false;
    for (;;) {
        if (!PreparePass(name, logging)) {
            return;
        }
        if (state_.PrinterInit > RepeatAbove && !retried1) {
            LoadPrinterLists(name, failed);
            retried1 = true;
        } else if (state_.PrinterInit > RepeatAgainAbove && !retried2) {
            Wait();
            LoadPrinterLists(name, failed);
            retried2 = true;
        } else {
            break;
        }
    }
    if (state_.PrinterInit > RepeatAbove && retried1) {
        AssignPrinter(name);
        Wait();
        if (logging) {
            LogPaperAndBin("Na Printer.Refresh (2)");
        }
    }
    if (logging) {
        WriteLogLine(platform_, "Printer staat klaar om te printen naar:");
        WriteLogLine(platform_, "Papierlade          : " + std::to_string(platform_.Printer.PaperBin()));
        WriteLogLine(platform_, "Papierformaat       : " + std::to_string(platform_.Printer.PaperSize()));
        WriteLogLine(platform_, "Einde " + std::string(69, '-'));
    }
    blnBusy = false;
}

void frmPrintManager::LogPreparation(const std::string& name) {
    const std::string lines[] = {
        "Start " + std::string(69, '-'),
        "Afdrukken           : " + lstAfdrukken.Text() + " op: " + name,
        "Papierformaat       : " + cboPrinterSelect(1).Text(),
        "Papierlade          : " + cboPrinterSelect(2).Text(),
    };
    for (const std::string& line : lines) {
        WriteLogLine(platform_, line);
    }
}

void frmPrintManager::LogPaperAndBin(const std::string& heading) {
    if (!heading.empty()) {
        WriteLogLine(platform_, heading);
    }
    WriteLogLine(platform_, "Init papierlade     : " + std::to_string(platform_.Printer.PaperBin()));
    WriteLogLine(platform_, "Init papierformaat  : " + std::to_string(platform_.Printer.PaperSize()));
}

void frmPrintManager::RememberPrinterState(bool restore) {
    if (FirstPrinterState.Printer.empty()) {
        FirstPrinterState = {cboPrinterSelect(0).Text(), std::to_string(cboPrinterSelect(1).ListIndex()),
                             std::to_string(cboPrinterSelect(2).ListIndex()),
                             std::to_string(cboPrinterSelect(3).ListIndex())};
    }
    if (restore) {
        RestoreState = FirstPrinterState;
    }
}

void frmPrintManager::RestorePrinterState() {
    if (blnFillingPrinters || blnNoConnection || cboPrinterSelect(2).ListCount() == 0 ||
        FirstPrinterState.Printer.empty() || RestoreState.Printer.empty() || IsNone(RestoreState.Paper) ||
        IsNone(RestoreState.Bin) || IsNone(RestoreState.Orientation)) {
        return;
    }
    const std::string name = RestoreState.Printer;
    bool failed = false;
    if (AssignPrinter(name)) {
        LoadPrinterLists(name, failed);
    }
    AssignPrinter(name);
    SetPaper(name, Position(RestoreState.Paper), false);
    SetBin(name, Position(RestoreState.Bin), false);
    if (AssignPrinter(name)) {
        LoadPrinterLists(name, failed);
    }
    blnRestorePending = false;
}

/// For who watches a driver with a debugger: the label is hidden. A printer that fails here fails at every
/// tick, and nobody is to be told ten times a second.
void frmPrintManager::tmrSetPaperSize_Timer() {
    base::Resume([this] {
        if (cboPrinterSelect(2).ListCount() > 0) {
            lblPaperSize.SetCaption(std::to_string(platform_.Printer.PaperSize()));
        }
    });
}

} // namespace printmanager
