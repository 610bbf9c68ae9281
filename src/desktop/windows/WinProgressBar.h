#pragma once

#include "forms/ProgressBar.h"
#include "desktop/windows/WinControl.h"

namespace platform::windows {

class WinProgressBar final : public WinControl {
  public:
    WinProgressBar(forms::ProgressBar& control, WinForm& form, const WindowPlace& place);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ProgressBar& model_;
};

} // namespace platform::windows
