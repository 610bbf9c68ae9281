#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/ChoiceControl.h"

namespace desktop::windows {

class WinListBox final : public WinControl {
  public:
    WinListBox(forms::ListBox& control, WinForm& form, const WindowPlace& place);

    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Pick(int index);
    void MouseReleased(LPARAM place);

    forms::ListBox& model_;
    bool picked_ = false; // the press in progress has picked an entry already
};

} // namespace desktop::windows
