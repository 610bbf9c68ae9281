#pragma once

#include "forms/Label.h"
#include "desktop/windows/WinControl.h"

namespace platform::windows {

class WinLabel final : public WinControl {
  public:
    WinLabel(forms::Label& control, WinForm& form, const WindowPlace& place);

  protected:
    void Place() override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void SetStyle(DWORD style, bool wanted) const;

    forms::Label& model_;
};

} // namespace platform::windows
