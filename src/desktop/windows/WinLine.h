#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/LineControl.h"

namespace desktop::windows {

/// A rule one dot of the design wide.
class WinLine final : public WinControl {
  public:
    WinLine(forms::LineControl& control, WinForm& form, const WindowPlace& place);

  protected:
    void Place() override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    forms::LineControl& model_;
};

} // namespace desktop::windows
