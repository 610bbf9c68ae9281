#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/OptionButton.h"

namespace desktop::windows {

class WinOptionButton final : public WinControl {
  public:
    WinOptionButton(forms::OptionButton& control, WinForm& form, const WindowPlace& place);

    void Notified(UINT code) override;
    bool KeyPressed(int virtualKey, bool shift) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::OptionButton& model_;
};

} // namespace desktop::windows
