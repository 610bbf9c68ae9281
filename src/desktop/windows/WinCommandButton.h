#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/CommandButton.h"

namespace desktop::windows {

class WinCommandButton final : public WinControl {
  public:
    WinCommandButton(forms::CommandButton& control, WinForm& form, const WindowPlace& place);

    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    /// True if Enter presses this button now.
    bool IsPressedByEnter() const;

    forms::CommandButton& model_;
};

} // namespace desktop::windows
