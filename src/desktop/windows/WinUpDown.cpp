#include "desktop/windows/WinUpDown.h"

#include "forms/Form.h"

namespace desktop::windows {

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

} // namespace desktop::windows
