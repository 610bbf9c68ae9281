#include "forms/CommandButton.h"

#include "forms/Form.h"

namespace forms {

bool CommandButton::IsPressedByEnter() const {
    const auto* focused = dynamic_cast<const CommandButton*>(Owner().ActiveControl());
    return focused == nullptr ? default_ : focused == this;
}

void CommandButton::Press() {
    if (TakesMouse() && OnClick) {
        Owner().Dispatch(OnClick);
    }
}

bool CommandButton::TypeKey(char32_t character) {
    if (character != U' ') {
        return false;
    }
    Press();
    return true;
}

bool CommandButton::UserClick() {
    if (!CanFocus()) {
        return false;
    }
    if (Owner().MoveFocus(*this)) {
        Press();
    }
    return true;
}

} // namespace forms
