#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/cmdButtonXP.h"

namespace desktop::windows {

class WinFlatButton final : public WinControl {
  public:
    WinFlatButton(forms::cmdButtonXP& control, WinForm& form, const WindowPlace& place);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    // A button that is off takes the mouse all the same, without an effect, and tells what it is for.
    bool ShowsEnabled() const override { return model_.WindowEnabled(); }
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Pressed();
    void Released(UINT message, WPARAM held, POINT place);

    forms::cmdButtonXP& model_;
    bool clicking_ = false; // the left button has gone down here
};

} // namespace desktop::windows
