#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/StatusBar.h"

namespace desktop::windows {

class WinStatusBar final : public WinControl {
  public:
    WinStatusBar(forms::StatusBar& control, WinForm& form, const WindowPlace& place);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    /// At the bottom, over the whole width.
    void Place() override;

  private:
    forms::StatusBar& model_;
};

} // namespace desktop::windows
