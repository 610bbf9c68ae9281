#include "forms/OptionButton.h"

#include <algorithm>
#include <vector>

#include "forms/Desktop.h"
#include "forms/Form.h"

namespace forms {

void OptionButton::SetCaption(const std::string& caption) {
    if (caption != caption_) {
        caption_ = caption;
        Changed(Aspect::Caption);
    }
}

void OptionButton::Store(bool value) {
    if (value != value_) {
        value_ = value;
        Changed(Aspect::Value);
    }
}

void OptionButton::SetValue(bool value) {
    if (value) {
        for (Control* other : Owner().Controls()) {
            if (other != this && other->Kind() == ControlKind::OptionButton &&
                other->Container() == Container()) {
                static_cast<OptionButton*>(other)->Store(false);
            }
        }
    }
    Store(value);
    if (value && OnClick) {
        Owner().Dispatch(OnClick);
    }
}

OptionButton* OptionButton::Neighbour(bool backward) const {
    std::vector<Control*> group;
    for (Control* control : Owner().Controls()) {
        if (control->Kind() == ControlKind::OptionButton && control->Container() == Container() &&
            control->CanFocus()) {
            group.push_back(control);
        }
    }
    std::stable_sort(group.begin(), group.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    if (backward) {
        std::reverse(group.begin(), group.end());
    }
    const auto self = std::find(group.begin(), group.end(), static_cast<const Control*>(this));
    if (group.size() < 2 || self == group.end()) {
        return nullptr;
    }
    const auto next = std::next(self);
    return static_cast<OptionButton*>(next == group.end() ? group.front() : *next);
}

bool OptionButton::TypeKey(char32_t character) {
    if (character != U' ') {
        return false;
    }
    SetValue(true);
    return true;
}

bool OptionButton::UserKey(int virtualKey, bool shift) {
    Control::UserKey(virtualKey, shift);
    const bool backward = virtualKey == key::Up || virtualKey == key::Left;
    const bool forward = virtualKey == key::Down || virtualKey == key::Right;
    if (OptionButton* neighbour = backward || forward ? Neighbour(backward) : nullptr) {
        neighbour->UserClick();
    }
    return backward || forward;
}

bool OptionButton::UserClick() {
    if (!CanFocus()) {
        return false;
    }
    if (Owner().MoveFocus(*this)) {
        SetValue(true);
    }
    return true;
}

} // namespace forms
