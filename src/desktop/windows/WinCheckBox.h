#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/CheckBox.h"

namespace desktop::windows {

class WinCheckBox final : public WinControl {
  public:
    WinCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place);

    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::CheckBox& model_;
};

} // namespace desktop::windows
