#pragma once

#include <string>

#include "forms/CommandButton.h"
#include "forms/ControlArray.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/PictureBox.h"
#include "forms/TextBox.h"
#include "forms/UpDown.h"
#include "machine/Platform.h"
#include "state/AppState.h"
#include "state/HandbookSections.h"

namespace printmanager {

/// Lets the user change AppState::PrinterInit, the patience that the print manager has with a driver. No
/// command opens it as yet. The new value lasts until the program ends.
class frmPrintManagerSetup : public forms::Form {
  public:
    frmPrintManagerSetup(forms::Session& session, machine::Platform& platform, state::AppState& state);

    forms::PictureBox Picture1;
    forms::PictureBox pictHeading;
    forms::LineControl lineHeading;
    forms::Label Label1;
    forms::Label Label2;
    forms::Label Label3;
    forms::Label Label4;
    /// 0 the new value, 1 the present one.
    forms::ControlArray<forms::TextBox> UserText;
    forms::UpDown UpDown;
    forms::CommandButton cmdOK;
    forms::CommandButton cmdClose;

  protected:
    void OnLoad() override;
    std::string HandbookSection() const override { return state::HandbookAnchor(Name()); }

  private:
    void LayOut();
    void cmdOK_Click();

    machine::Platform& platform_;
    state::AppState& state_;
};

} // namespace printmanager
