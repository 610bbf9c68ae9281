#include "forms/Toolbar.h"

#include <utility>

#include "base/RuntimeError.h"
#include "forms/Form.h"

namespace forms {

void Toolbar::AddButton(ToolbarButton button) {
    buttons_.push_back(std::move(button));
    Changed(Aspect::Items);
}

const ToolbarButton& Toolbar::Button(int number) const {
    if (number < 1 || number > ButtonCount()) {
        throw base::SubscriptOutOfRange();
    }
    return buttons_[static_cast<std::size_t>(number - 1)];
}

void Toolbar::SetButtonEnabled(int number, bool enabled) {
    if (Button(number).Enabled != enabled) {
        buttons_[static_cast<std::size_t>(number - 1)].Enabled = enabled;
        Changed(Aspect::Items);
    }
}

void Toolbar::SetButtonToolTipText(int number, const std::string& text) {
    if (Button(number).ToolTipText != text) {
        buttons_[static_cast<std::size_t>(number - 1)].ToolTipText = text;
        Changed(Aspect::Items);
    }
}

bool Toolbar::UserClickButton(int number) {
    if (number < 1 || number > ButtonCount() || Button(number).Separator || !Button(number).Enabled ||
        !TakesMouse()) {
        return false;
    }
    if (OnButtonClick) {
        Owner().Dispatch([&] { OnButtonClick(number); });
    }
    return true;
}

} // namespace forms
