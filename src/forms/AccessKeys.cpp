#include "forms/AccessKeys.h"

#include <string_view>

#include "base/Text.h"
#include "forms/AccessibleNames.h"
#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"

namespace forms {

namespace text = base::text;

namespace {

std::string KeyOf(const Control& control) {
    switch (control.Kind()) {
    case ControlKind::CheckBox:
        return MarkedKey(static_cast<const CheckBox&>(control).Caption());
    case ControlKind::CommandButton:
        return MarkedKey(static_cast<const CommandButton&>(control).Caption());
    case ControlKind::OptionButton:
        return MarkedKey(static_cast<const OptionButton&>(control).Caption());
    case ControlKind::Label:
        return MarkedKey(static_cast<const Label&>(control).Caption());
    default:
        return {};
    }
}

} // namespace

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

bool PressAccessKey(Form& form, char32_t character) {
    const std::string key = text::Upper(text::Encode(character));
    for (Control* control : form.Controls()) {
        if (!control->IsShown() || KeyOf(*control) != key) {
            continue;
        }
        if (control->Kind() == ControlKind::Label) {
            Control* target = AccessKeyTarget(static_cast<const Label&>(*control));
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

} // namespace forms
