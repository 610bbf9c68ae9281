#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/ScrollBar.h"

namespace desktop::windows {

class WinScrollBar final : public WinControl {
  public:
    WinScrollBar(forms::ScrollBar& control, WinForm& form, const WindowPlace& place);

    void Scrolled(int request, int position) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ScrollBar& model_;
};

} // namespace desktop::windows
