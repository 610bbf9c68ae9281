// The start of the program: settings, measures and the first page. A step that fails is given up, and the
// next one runs.
#include "base/Numbers.h"
#include "base/Resume.h"
#include "base/Text.h"
#include "composition/PrinterMeasures.h"
#include "machine/Locale.h"
#include "machine/Printer.h"
#include "payment/Accounts.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"
#include "testdata/Tables.h"
#include "wizard/frmMain.h"

namespace wizard {

using base::Resume;

namespace {

constexpr const char* SampleDigits = "1234567890123456";
constexpr double SampleSize = 12;
constexpr const char* DefaultFontSize = "12";
constexpr double LargestFontSize = 48;

} // namespace

void frmMain::OnLoad() {
    machine::Registry& registry = platform_.Registry;
    const auto read = [&](const char* name) { return state::LeesInstelling(state_, registry, name); };
    const auto readTrimmed = [&](const char* name) { return std::string(base::text::Trim(read(name))); };

    // Some drivers only report true measures once they have been asked for their settings.
    Resume([&] { platform_.Printers.Count(); });
    Resume([&] { platform_.Printer.Orientation(); });
    Resume([&] { composition::LeesPrinterMaten(state_, platform_); });

    state_.Blank = " ";
    state_.CrLf = "\r\n";
    state_.MessageTitle = "Drukkeuring acceptgiro's";
    state_.SettingsKey = "Software\\Ondor\\Tarvik\\CurrentVersion";

    // The stored orientation has no effect on a run: the print manager alone chooses it.
    if (state::GetalInstelling(read("PrinterOrientation")) == 0) {
        state::SchrijfInstelling(state_, registry, "PrinterOrientation", "1");
    }
    state_.PrinterOrientation = machine::Portrait;

    state_.LeftMargin = 100;
    state_.TwipsPerCm = 567;
    state_.PrinterInit = 100;
    UserText(0).SetText("100");
    FirstFocus = true;
    state::LaadInstellingen(state_, registry, true);
    ToonIncassant();

    Resume([&] { LeesLocale(); });

    state_.GMUFontName = readTrimmed("GMUFontName");
    state_.GMUCode = readTrimmed("GMUCode");
    state_.GMUServiceNr = read("GMUServiceNr");
    if (read("GMUFontSize").empty()) {
        state::SchrijfInstelling(state_, registry, "GMUFontSize", DefaultFontSize);
    }
    LeesGMUFontSize();
    state_.GMUVerkeer = state::IsAan(read("GMUVerkeer"));
    state_.OverrulePaperSize =
        read("UseSpecificPrinterSettings") == "0" && state::IsAan(read("PrinterOverrulePaperSize"));
    if (state_.GMUFontName.empty()) {
        state_.GMUFontName = "Tahoma";
    }
    Resume([&] { ToonLettertype(); });

    state_.GMUContractVorm = state::GetalInstelling(readTrimmed("GMUContractVorm"));
    lblContractsoort.SetCaption(std::string(state::ContractScreenText(state_.GMUContractVorm)));

    for (const auto& [index, panel] : WizardPanel) {
        panel->SetVisible(false);
        panel->SetLeft(0);
        panel->SetTop(PanelTop);
    }
    WizardPanel(0).SetVisible(true);
    Terug.SetEnabled(false);

    state_.PersonTable = &testdata::PersonTable();
    state_.AccountTable = &testdata::AccountTable();
    state_.MatrixPrinter = state::IsAan(read("MatrixPrinter"));
    state_.ListFontName = "Tahoma";
    Desktop().HourglassOff();
}

void frmMain::ToonIncassant() {
    UserText(70).SetText(state_.IncassantBegunstigde);
    UserText(71).SetText(state_.IncassantAdres);
    UserText(72).SetText(state_.IncassantPostCode);
    UserText(73).SetText(state_.IncassantWoonplaats);
    UserText(74).SetText(payment::Text2Rekening(state_.IncassantBankGiro));
}

void frmMain::LeesLocale() {
    machine::Locale& locale = platform_.Locale;
    const std::int32_t lcid = locale.GetUserDefaultLCID();
    state_.CurrencySymbol = state::LeesLocaleTekst(locale, lcid, machine::LocaleCurrencySymbol);
    state_.MonetaryDecimal = state::LeesLocaleTekst(locale, lcid, machine::LocaleMonetaryDecimal);
    state_.MonetaryThousand = state::LeesLocaleTekst(locale, lcid, machine::LocaleMonetaryThousand);
}

void frmMain::LeesGMUFontSize() {
    state_.GMUFontSize = state::LeesInstelling(state_, platform_.Registry, "GMUFontSize");
    const double points = base::NumericValue(state_.GMUFontSize);
    if (points <= 0 || points > LargestFontSize) {
        state_.GMUFontSize = DefaultFontSize;
    }
}

// The user sees at once whether a true OCR-B font is set.
void frmMain::ToonLettertype() {
    lblOCRFont.SetCaption(state_.GMUFontName);
    lblOCR.SetFont({.Name = state_.GMUFontName, .Size = SampleSize, .Bold = false});
    lblOCR.SetCaption(SampleDigits);
}

} // namespace wizard
