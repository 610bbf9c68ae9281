#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/ProgressBar.h"

namespace desktop::windows {

class WinProgressBar final : public WinControl {
  public:
    WinProgressBar(forms::ProgressBar& control, WinForm& form, const WindowPlace& place);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ProgressBar& model_;
};

} // namespace desktop::windows
