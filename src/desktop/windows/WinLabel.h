#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/Label.h"

namespace desktop::windows {

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

} // namespace desktop::windows
