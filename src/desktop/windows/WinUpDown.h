#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/UpDown.h"

namespace desktop::windows {

/// The two arrows; a press held down repeats. They take no focus themselves, the box beside them does.
class WinUpDown final : public WinControl {
  public:
    WinUpDown(forms::UpDown& control, WinForm& form, const WindowPlace& place);

    LRESULT Notified(NMHDR& header) override;

  protected:
    bool MousePressed() override;

  private:
    forms::UpDown& model_;
};

} // namespace desktop::windows
