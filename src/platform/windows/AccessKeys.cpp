#include "platform/windows/AccessKeys.h"

#include "platform/Text.h"
#include "platform/forms/AccessibleNames.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"

namespace platform::windows {

namespace {

/// The character that a caption marks, in capitals; empty for none.
std::string MarkedKey(const std::string& caption) {
    for (std::size_t at = caption.find('&'); at != std::string::npos; at = caption.find('&', at + 2)) {
        const std::string_view rest = std::string_view(caption).substr(at + 1);
        if (rest.empty()) {
            break;
        }
        if (rest.front() != '&') {
            return text::Upper(text::Left(rest, 1));
        }
    }
    return {};
}

std::string KeyOf(const forms::Control& control) {
    switch (control.Kind()) {
    case forms::ControlKind::CheckBox:
        return MarkedKey(static_cast<const forms::CheckBox&>(control).Caption());
    case forms::ControlKind::CommandButton:
        return MarkedKey(static_cast<const forms::CommandButton&>(control).Caption());
    case forms::ControlKind::OptionButton:
        return MarkedKey(static_cast<const forms::OptionButton&>(control).Caption());
    case forms::ControlKind::Label:
        return MarkedKey(static_cast<const forms::Label&>(control).Caption());
    default:
        return {};
    }
}

} // namespace

bool PressAccessKey(forms::Form& form, char32_t character) {
    const std::string key = text::Upper(text::Encode(character));
    for (forms::Control* control : form.Controls()) {
        if (!control->IsShown() || KeyOf(*control) != key) {
            continue;
        }
        if (control->Kind() == forms::ControlKind::Label) {
            forms::Control* target = forms::AccessKeyTarget(static_cast<const forms::Label&>(*control));
            if (target != nullptr && target->CanFocus()) {
                target->SetFocus();
                return true;
            }
        } else if (control->UserClick()) {
            return true;
        }
    }
    return false;
}

} // namespace platform::windows
