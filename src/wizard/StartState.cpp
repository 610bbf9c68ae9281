#include "wizard/StartState.h"

#include "machine/Printer.h"
#include "state/AppState.h"
#include "state/Settings.h"
#include "testdata/Tables.h"

namespace wizard {

void SetConstants(state::AppState& state) {
    state.Blank = " ";
    state.CrLf = "\r\n";
    state.MessageTitle = "Drukkeuring acceptgiro's";
    state.SettingsKey = state::TarviksKey;
    // The stored orientation has no effect on a run: the print manager alone chooses it.
    state.PrinterOrientation = machine::Portrait;
    state.LeftMargin = 100;
    state.TwipsPerCm = 567;
    state.PrinterInit = 100;
    state.PersonTable = &testdata::PersonTable();
    state.AccountTable = &testdata::AccountTable();
    state.ListFontName = "Tahoma";
}

} // namespace wizard
