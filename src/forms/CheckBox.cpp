#include "forms/CheckBox.h"

#include "forms/Form.h"

namespace forms {

void CheckBox::SetValue(bool value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    Changed(Aspect::Value);
    if (OnClick) {
        Owner().Dispatch(OnClick);
    }
}

bool CheckBox::TypeKey(char32_t character) {
    if (character != U' ') {
        return false;
    }
    SetValue(!value_);
    return true;
}

bool CheckBox::UserClick() {
    if (!CanFocus()) {
        return false;
    }
    if (Owner().MoveFocus(*this)) {
        SetValue(!value_);
    }
    return true;
}

} // namespace forms
