#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/ChoiceControl.h"

namespace desktop::windows {

/// While the list is down, the choice is on trial; it counts when the list closes, unless the user leaves it
/// with Escape.
class WinComboBox final : public WinControl {
  public:
    WinComboBox(forms::ComboBox& control, WinForm& form, const WindowPlace& place);

    void Notified(UINT code) override;
    bool KeepsEnterAndEscape() const override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    void Place() override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    int Chosen() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    void Pick();
    void ListClosed();
    void WidenList();

    forms::ComboBox& model_;
    bool listIsDown_ = false;
    bool listCloses_ = false; // the list is gone, and what it means has not been looked at yet
    bool accepted_ = false;
};

} // namespace desktop::windows
