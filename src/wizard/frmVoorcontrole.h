#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/PictureBox.h"
#include "machine/Platform.h"
#include "precheck/Finding.h"
#include "printmanager/PrintCaller.h"
#include "state/AppState.h"
#include "state/HandbookSections.h"
#include "wizard/PrintCommand.h"

namespace wizard {

/// The list of what would spoil the batch, worst first: of the chosen finding what is wrong, how it is mended
/// and, where there is something to see, a sketch.
class frmVoorcontrole : public forms::Form, public printmanager::PrintCaller {
  public:
    /// `check` looks for findings; it is asked when the form loads and whenever the user wants it. `printer`
    /// is what the template is drawn on.
    frmVoorcontrole(forms::Session& session, machine::Platform& platform, state::AppState& state,
                    composition::PrinterSurface& printer, std::function<precheck::Findings()> check);
    ~frmVoorcontrole() override;

    forms::PictureBox Picture1;
    forms::PictureBox pictHeading;
    forms::Label lblHeading;
    forms::LineControl lineHeading;
    forms::Label lblLijst;
    forms::ListBox lstMeldingen;
    forms::Label lblFoutKop;
    forms::Label lblFout;
    forms::Label lblHerstelKop;
    forms::Label lblHerstel;
    /// The sheet, or the digits of the font.
    forms::Label lblSchets;
    forms::PictureBox pictSchets;
    /// True digits, below those of the font.
    forms::Label lblCijfers;
    forms::PictureBox pictCijfers;
    forms::CommandButton cmdOpnieuw;
    forms::CommandButton cmdSjabloon;
    forms::CommandButton cmdBewaren;
    forms::CommandButton cmdSluiten;

    /// What was found the last time.
    const precheck::Findings& Gevonden() const { return gevonden_; }

    std::string HandbookSection() const override { return state::HandbookAnchor(Name()); }

    /// The template; the print manager has no other document of this form.
    void Afdrukken(std::int16_t iMethod, std::int16_t num_copies, bool blnPrintPreview) override;
    /// Nothing spoils a template.
    precheck::Findings Nakijken(const printmanager::Choice& /*choice*/) override { return {}; }

  protected:
    void OnLoad() override;

  private:
    void LayOut();
    void Controleer();
    void ToonMelding();
    void ToonBlad(const precheck::SheetSketch& sketch);
    void ToonLettertype();
    void DrukSjabloonAf();
    void Bewaar();
    void BewaarIn(const std::string& path);
    std::string Verslag() const;

    machine::Platform& platform_;
    state::AppState& state_;
    composition::PrinterSurface& printer_;
    ManagerPlace printManager_;
    std::function<precheck::Findings()> check_;
    precheck::Findings gevonden_;
};

} // namespace wizard
