#pragma once

#include "platform/Platform.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/ControlArray.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/LineControl.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/UpDown.h"
#include "wizard/AppState.h"

namespace printmanager {

/// Lets the user change AppState::PrinterInit, the patience that the print manager has with a driver. No
/// command opens it as yet. The new value lasts until the program ends.
class frmPrintManagerSetup : public forms::Form {
  public:
    frmPrintManagerSetup(forms::Session& session, platform::Platform& platform, wizard::AppState& state);

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

  private:
    void LayOut();
    void cmdOK_Click();

    platform::Platform& platform_;
    wizard::AppState& state_;
};

} // namespace printmanager
