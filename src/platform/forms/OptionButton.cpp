#include "platform/forms/OptionButton.h"

#include "platform/forms/Form.h"

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

bool OptionButton::TypeKey(char32_t character) {
    if (character != U' ') {
        return false;
    }
    SetValue(true);
    return true;
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
