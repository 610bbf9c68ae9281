#include "desktop/windows/WinCheckBox.h"

namespace desktop::windows {

WinCheckBox::WinCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_BUTTONW, BS_CHECKBOX | WS_TABSTOP), model_(control) {}

void WinCheckBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        SetCaption(model_.Caption());
    } else if (aspect == forms::Aspect::Value) {
        Send(BM_SETCHECK, model_.Value() ? BST_CHECKED : BST_UNCHECKED);
    }
}

void WinCheckBox::Notified(UINT code) {
    if (code == BN_CLICKED) {
        Click();
    }
}

} // namespace desktop::windows
