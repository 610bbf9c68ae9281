#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Boolean.h"
#include "composition/PrintSurface.h"
#include "forms/CommandButton.h"
#include "forms/ControlArray.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/OptionButton.h"
#include "forms/PictureBox.h"
#include "forms/TextBox.h"
#include "forms/UpDown.h"
#include "machine/Platform.h"
#include "printmanager/PrintCaller.h"
#include "state/AppState.h"
#include "state/HandbookSections.h"

namespace printmanager {
class frmPrintManager;
}

namespace wizard {

class Voorcontrole;

/// The wizard: four pages that lead the user to the number of test forms which the scheme asks of this
/// organisation, and then hand the three documents to the print manager. It is the program's first form, its
/// loading is the program's start, and it composes the documents when the print manager calls it back.
class frmMain : public forms::Form, public printmanager::PrintCaller {
  public:
    frmMain(forms::Session& session, machine::Platform& platform, state::AppState& state);
    ~frmMain() override;

    // The heading and the buttons, on the form itself.
    forms::PictureBox pictHeading;
    forms::PictureBox pictLogo;
    forms::Label lblHeading;
    forms::LineControl lineHeading;
    forms::LineControl lineButtons;
    forms::CommandButton Terug;
    forms::CommandButton Verder;
    forms::CommandButton Cancel;

    // The pages, 0 to 3, and what carries logic on them.
    forms::ControlArray<forms::PictureBox> WizardPanel;
    forms::Label lblOCRFont;
    forms::Label lblOCR;
    forms::Label lblContractsoort;
    /// 0 the number of forms; 70 to 74 the creditor's name, address, postcode, town and account.
    forms::ControlArray<forms::TextBox> UserText;
    /// 0 general procedure, 1 short procedure.
    forms::ControlArray<forms::OptionButton> optProcedure;
    /// 0 service bureau, 1 more than 20.000 forms a year, 2 fewer.
    forms::ControlArray<forms::OptionButton> optTestpartij;
    forms::UpDown UpDown;
    forms::CommandButton cmdPrinten;

    /// Page on show, 0 to 3.
    std::int16_t Page = 0;
    /// No box has had the focus since the start: the first one selects its text.
    base::Boolean FirstFocus;

    /// The print manager, while it is open.
    printmanager::frmPrintManager* PrintManager() const { return printManager_.get(); }

    void Afdrukken(std::int16_t iMethod, std::int16_t num_copies, bool blnPrintPreview) override;
    precheck::Findings Nakijken(const printmanager::Choice& choice) override;

    /// What tells on the pages what would spoil the batch.
    Voorcontrole& Controle() const { return *controle_; }

    /// Puts the creditor as the settings have it into the boxes.
    void ToonIncassant();
    /// Takes the creditor over from the boxes, but for the account.
    void NeemIncassantOver(state::AppState& state) const;

  protected:
    void OnLoad() override;
    bool OnQueryUnload() override;
    std::string HandbookSection() const override { return state::HandbookAnchor(Name(), Page); }

  private:
    class Host;

    /// Height of the heading, below which the pages stand; twips.
    static constexpr double PanelTop = 540;

    // The look: frmMainLayout.cpp.
    void LayOut();
    void LayOutFrame();
    void LayOutPages();
    void LayOutFields();
    void LayOutOptions();
    void LayOutButtons();

    // The start: frmMainLoad.cpp.
    void LeesLocale();
    void ToonLettertype();

    // Going through the pages: frmMain.cpp.
    void VerderClick();
    void TerugClick();
    void VanIncassant();
    void VanProcedure();
    void VanTestpartij();
    void NaarAfdrukken(const std::string& aantal);
    void ToonPagina(std::int16_t page);
    void Melding(const std::string& text);

    // The boxes: frmMainEntry.cpp.
    void BoxGotFocus(int index);
    void BoxLostFocus(int index);
    void BeoordeelRekening();

    // Printing: frmMainPrint.cpp.
    void cmdPrintenClick();

    machine::Platform& platform_;
    state::AppState& state_;
    composition::PrinterSurface printerSurface_;
    /// Texts and pictures that only stand there.
    std::vector<std::unique_ptr<forms::Control>> decoration_;
    std::unique_ptr<printmanager::frmPrintManager> printManager_;
    std::unique_ptr<Voorcontrole> controle_;
};

} // namespace wizard
