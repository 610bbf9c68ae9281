#include "forms/CommandButton.h"

#include "forms/Form.h"

namespace forms {

void CommandButton::SetCaption(const std::string& caption) {
    if (caption != caption_) {
        caption_ = caption;
        Changed(Aspect::Caption);
    }
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
