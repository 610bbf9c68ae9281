#include "wizard/frmMain.h"

#include <array>

#include "base/Numbers.h"
#include "base/Text.h"
#include "forms/Desktop.h"
#include "payment/Accounts.h"
#include "payment/TextRoutines.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/ToetsFilter.h"
#include "wizard/Voorcontrole.h"

namespace wizard {

namespace {

constexpr std::int16_t LastPage = 3;

/// Number of forms that the scheme asks for, by the choice on page 2.
constexpr std::array<const char*, 3> BatchSize{"250", "250", "100"};
constexpr const char* ShortProcedureSize = "5";

} // namespace

frmMain::frmMain(forms::Session& session, machine::Platform& platform, state::AppState& state)
    : Form(session, "frmMain"), pictHeading(*this, "pictHeading"),
      pictLogo(*this, "pictLogo", forms::Control::NoIndex, &pictHeading),
      lblHeading(*this, "lblHeading", forms::Control::NoIndex, &pictHeading),
      lineHeading(*this, "lineHeading"), lineButtons(*this, "lineButtons"), Terug(*this, "Terug"),
      Verder(*this, "Verder"), Cancel(*this, "Cancel"), WizardPanel(*this, "WizardPanel", {0, 1, 2, 3}),
      lblOCRFont(*this, "lblOCRFont", forms::Control::NoIndex, &WizardPanel(0)),
      lblOCR(*this, "lblOCR", forms::Control::NoIndex, &WizardPanel(0)),
      lblContractsoort(*this, "lblContractsoort", forms::Control::NoIndex, &WizardPanel(0)),
      UserText(*this, "UserText", {70, 71, 72, 73, 74}, &WizardPanel(0)),
      optProcedure(*this, "optProcedure", {0, 1}, &WizardPanel(1)),
      optTestpartij(*this, "optTestpartij", {0, 1, 2}, &WizardPanel(2)),
      UpDown(*this, "UpDown", UserText.Add(*this, "UserText", 0, &WizardPanel(3)), 1, 1000, &WizardPanel(3)),
      cmdPrinten(*this, "cmdPrinten", forms::Control::NoIndex, &WizardPanel(3)), platform_(platform),
      state_(state), printerSurface_(platform.Printer) {
    // Before the texts: the access key of a text would lead to a button that is made after it.
    controle_ = std::make_unique<Voorcontrole>(*this, platform_, state_, printerSurface_);
    LayOut();

    for (const auto& [index, box] : UserText) {
        box->OnGotFocus = [this, number = index] { BoxGotFocus(number); };
        box->OnLostFocus = [this, number = index] { BoxLostFocus(number); };
        box->OnKeyPress = [&box = *box](std::int16_t& KeyAscii) {
            KeyAscii = ToetsFilter(KeyAscii, box.Tag());
        };
    }
    UserText(0).OnChange = [this] { controle_->ControleerStraks(); };
    Verder.OnClick = [this] { VerderClick(); };
    Terug.OnClick = [this] { TerugClick(); };
    Cancel.OnClick = [this] {
        if (!state_.PrintManagerOpen) {
            Unload();
        }
    };
    cmdPrinten.OnClick = [this] { cmdPrintenClick(); };
}

frmMain::~frmMain() = default;

bool frmMain::OnQueryUnload() {
    return !state_.PrintManagerOpen;
}

void frmMain::Melding(const std::string& text) {
    platform_.Desktop.MsgBox(text, forms::MessageIcon::Information, state_.MessageTitle);
}

void frmMain::VerderClick() {
    switch (Page) {
    case 0:
        VanIncassant();
        break;
    case 1:
        VanProcedure();
        break;
    case 2:
        VanTestpartij();
        break;
    default:
        break;
    }
}

void frmMain::NeemIncassantOver(state::AppState& state) const {
    state.IncassantBegunstigde = UserText(70).Text();
    state.IncassantAdres = UserText(71).Text();
    const std::string postcode(base::text::Trim(base::text::Upper(UserText(72).Text())));
    state.IncassantPostCode = payment::VerwijderTeken(postcode, " ");
    state.IncassantWoonplaats = UserText(73).Text();
}

void frmMain::VanIncassant() {
    NeemIncassantOver(state_);
    if (!payment::BankGiroCheck(UserText(74).Text())) {
        Melding("Het ingegeven banknummer is niet correct.");
        UserText(74).SetText("");
        controle_->ControleerVelden();
        UserText(74).SetFocus();
        return;
    }
    state_.IncassantBankGiro = payment::Rekening2Text(UserText(74).Text());
    Terug.SetEnabled(true);
    ToonPagina(1);
}

void frmMain::VanProcedure() {
    if (optProcedure(0).Value()) {
        ToonPagina(2);
    } else if (optProcedure(1).Value()) {
        NaarAfdrukken(ShortProcedureSize);
    } else {
        Melding("U heeft nog geen keuze gemaakt omtrent de te volgen procedure.");
    }
}

void frmMain::VanTestpartij() {
    for (const auto& [index, option] : optTestpartij) {
        if (option->Value()) {
            NaarAfdrukken(BatchSize[static_cast<std::size_t>(index)]);
            return;
        }
    }
    Melding("U heeft nog geen keuze gemaakt omtrent de omvang van de testpartij.");
}

void frmMain::NaarAfdrukken(const std::string& aantal) {
    UserText(0).SetText(aantal);
    ToonPagina(LastPage);
    UserText(0).SetFocus();  // and not the button after this one, which closes
    UserText(0).SelectAll(); // what is typed replaces it
    Verder.SetEnabled(false);
    controle_->SetGevraagd(base::Int32OfText(aantal));
    controle_->ControleerAlles();
}

void frmMain::TerugClick() {
    switch (Page) {
    case 1:
        ToonPagina(0);
        Terug.SetEnabled(false);
        controle_->ControleerVelden();
        break;
    case 2:
        ToonPagina(1);
        break;
    case LastPage:
        ToonPagina(optProcedure(1).Value() ? 1 : 2);
        break;
    default:
        break;
    }
    Verder.SetEnabled(true);
}

void frmMain::ToonPagina(std::int16_t page) {
    const std::int16_t previous = Page;
    Page = page;
    // Enter does what the page is for.
    Verder.SetDefault(page != LastPage);
    cmdPrinten.SetDefault(page == LastPage);
    WizardPanel(page).SetVisible(true);
    WizardPanel(previous).SetVisible(false);
}

} // namespace wizard
