// The end of the wizard's own work: the documents go to the print manager, which calls back for each of them.
#include <array>

#include "base/Numbers.h"
#include "composition/DocumentRun.h"
#include "forms/Desktop.h"
#include "machine/Printer.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/PrintCommand.h"
#include "wizard/Voorcontrole.h"
#include "wizard/frmMain.h"

namespace wizard {

namespace {

constexpr double MostForms = 30000;

/// By their numbers.
constexpr std::array<const char*, 3> Titles = {"Acceptgiroformulieren voor de drukkeuring", "Namenlijst",
                                               "Instellingen calibratie"};

} // namespace

/// What a run asks of the wizard and of the forms around it.
class frmMain::Host : public PrintHost {
  public:
    explicit Host(frmMain& form)
        : PrintHost(form.printManager_, form, form.platform_, form.state_, form.printerSurface_),
          form_(form) {}

    std::string CountText() override { return form_.UserText(0).Text(); }
    void SetCountText(const std::string& text) override { form_.UserText(0).SetText(text); }

  private:
    frmMain& form_;
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
    ShowManager(printManager_, *this, platform_, state_, Titles);
    controle_->ControleerAlles(); // the user may have mended what was wrong
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
