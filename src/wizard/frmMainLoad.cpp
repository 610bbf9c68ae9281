// The start of the program: settings, measures and the first page. A step that fails is given up, and the
// next one runs.
#include "base/Resume.h"
#include "composition/PrinterMeasures.h"
#include "machine/Locale.h"
#include "machine/Printer.h"
#include "payment/Accounts.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"
#include "wizard/StartState.h"
#include "wizard/Voorcontrole.h"
#include "wizard/frmMain.h"

namespace wizard {

using base::Resume;

namespace {

constexpr const char* SampleDigits = "1234567890123456";
constexpr double SampleSize = 12;

} // namespace

void frmMain::OnLoad() {
    machine::Registry& registry = platform_.Registry;
    const auto read = [&](const char* name) { return state::LeesInstelling(state_, registry, name); };

    // Some drivers only report true measures once they have been asked for their settings.
    Resume([&] { platform_.Printers.Count(); });
    Resume([&] { platform_.Printer.Orientation(); });
    Resume([&] { composition::LeesPrinterMaten(state_, platform_); });

    SetConstants(state_);
    if (state::GetalInstelling(read("PrinterOrientation")) == 0) {
        state::SchrijfInstelling(state_, registry, "PrinterOrientation", "1");
    }
    UserText(0).SetText("100");
    FirstFocus = true;
    state::LaadInstellingen(state_, registry, true);
    ToonIncassant();

    Resume([&] { LeesLocale(); });

    state::LaadLettertype(state_, registry);
    if (read(state::FontSizeSetting).empty()) {
        state::SchrijfInstelling(state_, registry, state::FontSizeSetting, state::DefaultFontSize);
    }
    state::LaadStartInstellingen(state_, registry);
    Resume([&] { ToonLettertype(); });

    lblContractsoort.SetCaption(std::string(state::ContractScreenText(state_.GMUContractVorm)));

    for (const auto& [index, panel] : WizardPanel) {
        panel->SetVisible(false);
        panel->SetLeft(0);
        panel->SetTop(PanelTop);
    }
    WizardPanel(0).SetVisible(true);
    Terug.SetEnabled(false);

    controle_->ControleerVelden();
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

// The user sees at once whether a true OCR-B font is set.
void frmMain::ToonLettertype() {
    lblOCRFont.SetCaption(state_.GMUFontName);
    lblOCR.SetFont({.Name = state_.GMUFontName, .Size = SampleSize, .Bold = false});
    lblOCR.SetCaption(SampleDigits);
}

} // namespace wizard
