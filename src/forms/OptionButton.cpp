#include "forms/OptionButton.h"

#include <algorithm>
#include <vector>

#include "forms/Desktop.h"
#include "forms/Form.h"

namespace forms {

void OptionButton::Store(bool value) {
    if (value != value_) {
        value_ = value;
        Changed(Aspect::Value);
    }
}

void OptionButton::SetValue(bool value) {
    if (value) {
        for (OptionButton* other : Owner().ControlsOf<OptionButton>()) {
            if (other != this && other->Container() == Container()) {
                other->Store(false);
            }
        }
    }
    Store(value);
    if (value && OnClick) {
        Owner().Dispatch(OnClick);
    }
}

OptionButton* OptionButton::Neighbour(bool backward) const {
    std::vector<OptionButton*> group = Owner().ControlsOf<OptionButton>();
    std::erase_if(group, [this](const OptionButton* option) {
        return option->Container() != Container() || !option->CanFocus();
    });
    std::stable_sort(group.begin(), group.end(), [](const OptionButton* a, const OptionButton* b) {
        return a->TabIndex() < b->TabIndex();
    });
    if (backward) {
        std::reverse(group.begin(), group.end());
    }
    const auto self = std::find(group.begin(), group.end(), this);
    if (group.size() < 2 || self == group.end()) {
        return nullptr;
    }
    const auto next = std::next(self);
    return next == group.end() ? group.front() : *next;
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
