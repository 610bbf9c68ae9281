#include "wizard/StartState.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "machine/Printer.h"
#include "payment/Accounts.h"
#include "payment/TextRoutines.h"
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

void TakeAsShown(state::AppState& state) {
    namespace text = base::text;
    const auto shown = [](std::string_view whole, int longest) {
        return std::string(text::Left(whole, static_cast<std::size_t>(longest)));
    };
    state.IncassantBegunstigde = shown(state.IncassantBegunstigde, LongestText);
    state.IncassantAdres = shown(state.IncassantAdres, LongestText);
    state.IncassantPostCode = payment::VerwijderTeken(
        std::string(text::Trim(text::Upper(shown(state.IncassantPostCode, LongestPostcode)))), " ");
    state.IncassantWoonplaats = shown(state.IncassantWoonplaats, LongestText);
    state.IncassantBankGiro =
        payment::Rekening2Text(shown(payment::Text2Rekening(state.IncassantBankGiro), LongestAccount));
}

} // namespace wizard
