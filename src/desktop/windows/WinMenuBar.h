#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/MenuBar.h"

namespace desktop::windows {

/// The menu in the frame of the form's window.
class WinMenuBar final : public WinControl {
  public:
    WinMenuBar(forms::MenuBar& control, WinForm& form, const WindowPlace& place);

    /// The user has chosen the line with this command; see ControlIds.h.
    void Choose(int command);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::MenuBar& model_;
};

} // namespace desktop::windows
