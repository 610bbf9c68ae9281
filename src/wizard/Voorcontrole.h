#pragma once

#include <cstdint>
#include <optional>

#include "forms/CommandButton.h"
#include "forms/ControlArray.h"
#include "forms/PictureBox.h"
#include "forms/Timer.h"
#include "machine/Platform.h"
#include "precheck/Finding.h"
#include "precheck/Precheck.h"
#include "printmanager/PrintCaller.h"
#include "state/AppState.h"

namespace composition {
class PrinterSurface;
}

namespace wizard {

class frmMain;

/// Tells on the wizard's pages what would spoil the batch, while it can still be mended: a picture beside
/// each field of the first page that is wrong, and a line below the text of the last one, which opens the
/// list. None of its controls has a window as long as nothing is found. It asks nothing and stops nobody.
class Voorcontrole {
  public:
    /// Its controls follow those that the form has by then.
    Voorcontrole(frmMain& form, machine::Platform& platform, state::AppState& state,
                 composition::PrinterSurface& printer);

    /// By the element of UserText beside which it stands; FontField and ContractField for what comes from
    /// the settings alone.
    forms::ControlArray<forms::PictureBox> pictMelding;
    static constexpr int FontField = 75;
    static constexpr int ContractField = 76;

    forms::PictureBox pictVoorcontrole;
    forms::CommandButton cmdVoorcontrole;
    /// What takes longer is looked at when the messages that wait have been handled.
    forms::Timer tmrVoorcontrole;

    /// Looks at the fields of the first page as they stand.
    void ControleerVelden();
    /// The last page has come, or what it prints may be other than before: looks at once at what is quick,
    /// and at the rest soon.
    void ControleerAlles();
    /// The same, soon, if the last page is there.
    void ControleerStraks();

    /// Number of forms that the chosen procedure asks for.
    void SetGevraagd(std::int32_t forms) { gevraagd_ = forms; }

    /// What would spoil a document on the printer and sheet that are chosen in the print manager.
    precheck::Findings Nakijken(const printmanager::Choice& choice);

  private:
    void LayOut();
    precheck::Intent Voornemen() const;
    precheck::Findings Nakijken();
    bool MagControleren() const;
    void ToonVelden(const precheck::Findings& findings);
    void ToonRegel();
    void ToonLijst();

    frmMain& form_;
    machine::Platform& platform_;
    state::AppState& state_;
    composition::PrinterSurface& printer_;
    std::int32_t gevraagd_ = 0;
    precheck::Findings gevonden_;
};

} // namespace wizard
