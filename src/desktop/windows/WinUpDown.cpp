#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/Form.h"
#include "forms/UpDown.h"

namespace desktop::windows {

namespace {

/// The two arrows; a press held down repeats. They take no focus themselves, the box beside them does.
class WinUpDown final : public WinControl {
  public:
    WinUpDown(forms::UpDown& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    bool IsNamed() const override { return true; }
    LRESULT Notified(NMHDR& header) override;

  protected:
    bool MousePressed() override;

  private:
    forms::UpDown& model_;
};

// The window's own number stays in the middle of three: the form's box has the real one.
WinUpDown::WinUpDown(forms::UpDown& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, UPDOWN_CLASSW), model_(control) {
    Send(UDM_SETRANGE32, 0, 2);
    Send(UDM_SETPOS32, 0, 1);
}

LRESULT WinUpDown::Notified(NMHDR& header) {
    if (header.code != static_cast<UINT>(UDN_DELTAPOS)) {
        return 0;
    }
    constexpr LRESULT keepsItsNumber = TRUE;
    model_.UserStep(reinterpret_cast<const NMUPDOWN&>(header).iDelta > 0 ? 1 : -1);
    return keepsItsNumber;
}

// A press in the arrows brings the focus to the box, and is lost if it does not stay there.
bool WinUpDown::MousePressed() {
    forms::TextBox& box = model_.Buddy();
    return box.CanFocus() && !box.Owner().MoveFocus(box);
}

} // namespace

std::unique_ptr<WinControl> MakeUpDown(forms::UpDown& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinUpDown>(control, form, place);
}

} // namespace desktop::windows
