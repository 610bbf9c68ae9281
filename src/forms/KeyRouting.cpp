#include "forms/KeyRouting.h"

#include "forms/Desktop.h"
#include "forms/Form.h"

namespace forms {

namespace {

bool IsFormsOwn(int virtualKey) {
    return virtualKey == key::Tab || virtualKey == key::Enter || virtualKey == key::Escape ||
           virtualKey == key::F1;
}

} // namespace

bool RouteKey(Form& form, const KeyPress& press, KeyWindow& window, const std::function<bool()>& toControl) {
    const auto tellForm = [&] { form.UserKey(press.VirtualKey, press.Shift); };
    const auto scrolls = [&] {
        return press.VirtualKey != 0 && !IsFormsOwn(press.VirtualKey) && !toControl &&
               form.ActiveControl() == nullptr;
    };
    if (press.Held != KeyPress::With::Nothing) {
        // A form that scrolls has no focus, and its keys are the same with Ctrl.
        if (press.Held == KeyPress::With::Ctrl && scrolls()) {
            tellForm();
        }
        return false;
    }
    if (press.VirtualKey == key::F1) {
        if (!press.Repeated) {
            form.UserHelp();
        }
        return true;
    }
    window.SettleFocus();
    if (press.VirtualKey == key::Tab) {
        window.ShowFocus();
        tellForm();
        return true;
    }
    if (IsFormsOwn(press.VirtualKey)) {
        // A key held down must not run through the window that comes next.
        if (!press.KeptByControl && !press.Repeated) {
            tellForm();
        }
        return !press.KeptByControl;
    }
    if (toControl) {
        return toControl();
    }
    if (scrolls()) {
        tellForm();
    }
    return false;
}

} // namespace forms
