#pragma once

#include "platform/cmdButtonXP.h"
#include "platform/windows/WinControl.h"

namespace platform::windows {

class WinFlatButton final : public WinControl {
  public:
    WinFlatButton(cmdButtonXP& control, WinForm& form, const WindowPlace& place);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool ShowsEnabled() const override { return model_.Enabled() && model_.WindowEnabled(); }
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Released(POINT place);

    cmdButtonXP& model_;
};

} // namespace platform::windows
