// The end of the wizard's own work: the documents go to the print manager, which calls back for each of them.
#include <algorithm>
#include <memory>

#include "base/Numbers.h"
#include "composition/DocumentRun.h"
#include "composition/RunHost.h"
#include "forms/Desktop.h"
#include "machine/Printer.h"
#include "preview/PrintPreview.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/Voorcontrole.h"
#include "wizard/frmMain.h"

namespace wizard {

namespace {

constexpr double MostForms = 30000;

/// Takes the manager away at the end of the command, also where it could not be shown or its closing broke
/// off halfway: the wizard must not stay locked.
class ManagerGone {
  public:
    ManagerGone(std::unique_ptr<printmanager::frmPrintManager>& manager, state::AppState& state)
        : manager_(manager), state_(state) {}
    ~ManagerGone() {
        manager_.reset();
        state_.PrintManagerOpen = false;
    }
    ManagerGone(const ManagerGone&) = delete;
    ManagerGone& operator=(const ManagerGone&) = delete;

  private:
    std::unique_ptr<printmanager::frmPrintManager>& manager_;
    state::AppState& state_;
};

/// Lets nothing of a document be left at the end of its run: a run that broke off must not become the
/// beginning of the next one.
class WholeDocument {
  public:
    explicit WholeDocument(machine::Printer& printer) : printer_(printer) {}
    ~WholeDocument() { printer_.Abandon(); }
    WholeDocument(const WholeDocument&) = delete;
    WholeDocument& operator=(const WholeDocument&) = delete;

  private:
    machine::Printer& printer_;
};

} // namespace

/// What a run asks of the wizard and of the forms around it.
class frmMain::Host : public composition::RunHost {
  public:
    explicit Host(frmMain& form)
        : form_(form), preview_(form.GetSession(), form.platform_, form.state_, form.printerSurface_) {}

    std::string CountText() override { return form_.UserText(0).Text(); }
    void SetCountText(const std::string& text) override { form_.UserText(0).SetText(text); }
    void UpdatePercentage(std::int16_t iNewPerc) override {
        if (form_.PrintManager() != nullptr) {
            form_.PrintManager()->UpdatePercentage(iNewPerc);
        }
    }
    void OpenPreview(std::int16_t fase) override { preview_.OpenPreview(fase); }
    void ShowPreview() override { preview_.Show(); }

  private:
    frmMain& form_;
    preview::PrintPreview preview_;
};

void frmMain::cmdPrintenClick() {
    // A manager that is gone from the screen may still be finishing its last command.
    if (state_.PrintManagerOpen || printManager_ != nullptr) {
        return;
    }
    const double aantal = base::NumericValue(UserText(0).Text());
    if (aantal <= 0) {
        Melding("Er valt niets af te drukken, geef eerst het aantal acceptgiro's in.");
        return;
    }
    if (aantal > MostForms) {
        Melding("U kunt maximaal 30.000 acceptgiro's afdrukken.");
        return;
    }
    std::fill(state_.DocumentTitle.begin() + 1, state_.DocumentTitle.end(), std::string());
    state_.DocumentTitle[1] = "Acceptgiroformulieren voor de drukkeuring";
    state_.DocumentTitle[2] = "Namenlijst";
    state_.DocumentTitle[3] = "Instellingen calibratie";
    state_.CallerFormName = Name();

    ToonAfdrukbeheer();
    controle_->ControleerAlles(); // the user may have mended what was wrong
}

void frmMain::ToonAfdrukbeheer() {
    const ManagerGone gone(printManager_, state_);
    printManager_ = std::make_unique<printmanager::frmPrintManager>(GetSession(), platform_, state_);
    printManager_->ShowModal();
}

void frmMain::Afdrukken(std::int16_t iMethod, std::int16_t num_copies, bool blnPrintPreview) {
    const WholeDocument whole(platform_.Printer);
    Host host(*this);
    composition::ComposeDocument(
        state_, platform_, printerSurface_, host,
        {.iMethod = iMethod, .num_copies = num_copies, .blnPrintPreview = blnPrintPreview});
}

precheck::Findings frmMain::Nakijken(const printmanager::Choice& choice) {
    return controle_->Nakijken(choice);
}

} // namespace wizard
