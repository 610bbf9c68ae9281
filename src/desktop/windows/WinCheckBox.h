#pragma once

#include "forms/CheckBox.h"
#include "desktop/windows/WinControl.h"

namespace platform::windows {

class WinCheckBox final : public WinControl {
  public:
    WinCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place);

    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::CheckBox& model_;
};

} // namespace platform::windows
