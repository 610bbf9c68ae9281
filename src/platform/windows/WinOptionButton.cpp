#include "platform/windows/WinOptionButton.h"

#include <algorithm>
#include <vector>

#include "platform/Desktop.h"
#include "platform/forms/Form.h"

namespace platform::windows {

// Which options exclude each other is the form's business.
WinOptionButton::WinOptionButton(forms::OptionButton& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_BUTTONW, BS_RADIOBUTTON | WS_TABSTOP), model_(control) {}

void WinOptionButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        SetCaption(model_.Caption());
    } else if (aspect == forms::Aspect::Value) {
        Send(BM_SETCHECK, model_.Value() ? BST_CHECKED : BST_UNCHECKED);
    }
}

void WinOptionButton::Notified(UINT code) {
    if (code == BN_CLICKED) {
        Click();
    }
}

forms::OptionButton* WinOptionButton::Neighbour(bool backward) const {
    std::vector<forms::Control*> group;
    for (forms::Control* control : model_.Owner().Controls()) {
        if (control->Kind() == forms::ControlKind::OptionButton &&
            control->Container() == model_.Container() && control->CanFocus()) {
            group.push_back(control);
        }
    }
    std::stable_sort(group.begin(), group.end(), [](const forms::Control* a, const forms::Control* b) {
        return a->TabIndex() < b->TabIndex();
    });
    if (backward) {
        std::reverse(group.begin(), group.end());
    }
    const auto self = std::find(group.begin(), group.end(), static_cast<forms::Control*>(&model_));
    if (group.size() < 2 || self == group.end()) {
        return nullptr;
    }
    const auto next = std::next(self);
    return static_cast<forms::OptionButton*>(next == group.end() ? group.front() : *next);
}

bool WinOptionButton::KeyPressed(int virtualKey, bool shift) {
    WinControl::KeyPressed(virtualKey, shift);
    const bool backward = virtualKey == key::Up || virtualKey == key::Left;
    const bool forward = virtualKey == key::Down || virtualKey == key::Right;
    if (backward || forward) {
        if (forms::OptionButton* neighbour = Neighbour(backward)) {
            neighbour->UserClick();
        }
    }
    return backward || forward;
}

} // namespace platform::windows
