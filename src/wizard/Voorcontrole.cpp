#include "wizard/Voorcontrole.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/Numbers.h"
#include "machine/Printer.h"
#include "payment/Accounts.h"
#include "precheck/CurrentPrinter.h"
#include "precheck/FindingsReport.h"
#include "precheck/Quietly.h"
#include "printmanager/FindingMark.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/frmMain.h"
#include "wizard/frmVoorcontrole.h"

namespace wizard {

namespace {

constexpr std::int16_t FirstPage = 0;
constexpr std::int16_t PrintPage = 3;
constexpr double MostJudgedForms = 30000;

/// The creditor is the same on each form of a batch: what fits here fits everywhere.
constexpr std::int32_t FormsOnSheet = 3;

/// A place where the user mends something, and the picture that stands there.
struct MarkedField {
    precheck::Spot Spot;
    int Picture;
};
constexpr std::array<MarkedField, 7> MarkedFields{{
    {precheck::Spot::OcrFont, Voorcontrole::FontField},
    {precheck::Spot::Contract, Voorcontrole::ContractField},
    {precheck::Spot::CreditorName, 70},
    {precheck::Spot::CreditorAddress, 71},
    {precheck::Spot::CreditorPostcode, 72},
    {precheck::Spot::CreditorTown, 73},
    {precheck::Spot::CreditorAccount, 74},
}};

} // namespace

Voorcontrole::Voorcontrole(frmMain& form, machine::Platform& platform, state::AppState& state,
                           composition::PrinterSurface& printer)
    : pictMelding(form, "pictMelding", {FontField, ContractField, 70, 71, 72, 73, 74},
                  &form.WizardPanel(FirstPage)),
      pictVoorcontrole(form, "pictVoorcontrole", forms::Control::NoIndex, &form.WizardPanel(PrintPage)),
      cmdVoorcontrole(form, "cmdVoorcontrole", forms::Control::NoIndex, &form.WizardPanel(PrintPage)),
      tmrVoorcontrole(form, "tmrVoorcontrole", 1), form_(form), platform_(platform), state_(state),
      printer_(printer) {
    LayOut();
    cmdVoorcontrole.OnClick = [this] { ToonLijst(); };
    tmrVoorcontrole.OnTimer = [this] {
        tmrVoorcontrole.SetEnabled(false);
        precheck::Quietly([this] {
            if (MagControleren()) {
                gevonden_ = Nakijken();
                ToonRegel();
            }
        });
    };
}

void Voorcontrole::ControleerVelden() {
    state::AppState edited = state_;
    form_.NeemIncassantOver(edited);
    edited.IncassantBankGiro = payment::Rekening2Text(form_.UserText(74).Text());
    precheck::Findings findings;
    precheck::Quietly([&] { findings = precheck::CheckSettings(edited, platform_, Voornemen()); });
    precheck::Quietly([&] {
        precheck::Intent oneSheet = Voornemen();
        oneSheet.Forms = FormsOnSheet;
        const precheck::Findings composed =
            precheck::CheckDocument(edited, platform_, oneSheet, std::nullopt);
        findings.insert(findings.end(), composed.begin(), composed.end());
    });
    ToonVelden(findings);
}

void Voorcontrole::ControleerAlles() {
    if (!MagControleren()) {
        return;
    }
    gevonden_.clear();
    precheck::Quietly([&] { gevonden_ = precheck::CheckSettings(state_, platform_, Voornemen()); });
    ToonRegel();
    tmrVoorcontrole.SetEnabled(true);
}

void Voorcontrole::ControleerStraks() {
    if (MagControleren()) {
        tmrVoorcontrole.SetEnabled(true);
    }
}

precheck::Findings Voorcontrole::Nakijken(const printmanager::Choice& choice) {
    precheck::Intent intent = Voornemen();
    intent.Document = choice.iMethod;
    intent.Copies = choice.num_copies;
    intent.Orientation = choice.Orientation;
    std::optional<precheck::ChosenPrinter> printer;
    if (choice.Printer >= 0) {
        printer = precheck::ChooseForRun(state_, platform_, choice.Printer, choice.Paper, choice.Orientation);
    }
    return precheck::CheckAll(state_, platform_, intent, printer);
}

precheck::Intent Voorcontrole::Voornemen() const {
    const double forms = base::NumericValue(form_.UserText(0).Text());
    precheck::Intent intent;
    intent.Forms = static_cast<std::int32_t>(std::clamp(forms, 0.0, MostJudgedForms));
    intent.FormsAskedFor = gevraagd_;
    return intent;
}

precheck::Findings Voorcontrole::Nakijken() {
    precheck::Findings findings;
    precheck::Quietly([&] {
        findings =
            precheck::CheckAll(state_, platform_, Voornemen(), precheck::CurrentPrinter(state_, platform_));
    });
    return findings;
}

// A document under way has its settings and its chance for itself.
bool Voorcontrole::MagControleren() const {
    return form_.Page == PrintPage && !state_.PrintManagerOpen && form_.PrintManager() == nullptr;
}

void Voorcontrole::ToonVelden(const precheck::Findings& findings) {
    for (const MarkedField& field : MarkedFields) {
        printmanager::TellAt(pictMelding(field.Picture), findings, {field.Spot});
    }
}

void Voorcontrole::ToonRegel() {
    const bool any = !gevonden_.empty();
    if (any) {
        cmdVoorcontrole.SetCaption("V&oorcontrole: " + precheck::CountText(gevonden_.size()));
        pictVoorcontrole.SetPicture(printmanager::PictureOf(gevonden_.front().Gravity));
    }
    pictVoorcontrole.SetVisible(any);
    cmdVoorcontrole.SetVisible(any);
}

void Voorcontrole::ToonLijst() {
    if (!MagControleren()) {
        return;
    }
    tmrVoorcontrole.SetEnabled(false);
    frmVoorcontrole list(form_.GetSession(), platform_, state_, printer_, [this] { return Nakijken(); });
    list.ShowModal();
    gevonden_ = list.Gevonden();
    ToonRegel();
}

} // namespace wizard
