// The keyboard and the focus of a form's window.
#include <algorithm>
#include <array>

#include "desktop/windows/FormWindow.h"
#include "desktop/windows/WinForm.h"
#include "forms/AccessKeys.h"
#include "forms/Form.h"
#include "forms/KeyRouting.h"

namespace desktop::windows {

namespace {

constexpr std::array FormKeys{
    forms::key::Backspace, forms::key::PageUp, forms::key::PageDown, forms::key::End,  forms::key::Home,
    forms::key::Left,      forms::key::Up,     forms::key::Right,    forms::key::Down, forms::key::Delete,
    forms::key::Tab,       forms::key::Enter,  forms::key::Escape,   forms::key::F1};

/// The key if forms tell it apart, else 0.
int FormKey(WPARAM virtualKey) {
    const int wanted = static_cast<int>(virtualKey);
    return std::find(FormKeys.begin(), FormKeys.end(), wanted) == FormKeys.end() ? 0 : wanted;
}

bool HeldDown(int virtualKey) {
    return ::GetKeyState(virtualKey) < 0;
}

bool IsRepeat(LPARAM info) {
    return (info & (LPARAM{1} << 30)) != 0;
}

} // namespace

bool WinForm::KeyPressed(WPARAM virtualKey, LPARAM info, WinControl* control) {
    using With = forms::KeyPress::With;
    const forms::KeyPress press{FormKey(virtualKey), HeldDown(VK_SHIFT),
                                HeldDown(VK_CONTROL) ? With::Ctrl : With::Nothing, IsRepeat(info),
                                control != nullptr && control->KeepsEnterAndEscape()};
    const auto toControl = [&] { return control->KeyPressed(press.VirtualKey, press.Shift); };
    return forms::RouteKey(form_, press, *this,
                           control == nullptr ? nullptr : std::function<bool()>(toControl));
}

void WinForm::ShowFocus() {
    ::SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

/// A key that no control has; false for what Windows has to see as well.
bool WinForm::KeyReceived(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
        KeyPressed(wParam, lParam, nullptr);
        return true;
    case WM_SYSKEYDOWN:
        ShowAccessKeys();
        return false;
    case WM_SYSCHAR:
        return AccessKeyPressed(static_cast<wchar_t>(wParam));
    default:
        return false;
    }
}

bool WinForm::AccessKeyPressed(wchar_t character) {
    SettleFocus();
    return forms::PressAccessKey(form_, character);
}

void WinForm::ShowAccessKeys() {
    ::SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

void WinForm::FocusMoved(forms::Control* control) {
    if (control != nullptr) {
        Find(*control).TakeFocus();
    } else if (IsActive()) {
        ::SetFocus(window_);
    }
    for (const auto& each : controls_) {
        each->FormFocusMoved();
    }
}

void WinForm::SettleFocusLater() {
    if (!settling_) {
        settling_ = ::PostMessageW(window_, MessageSettleFocus, 0, 0) != FALSE;
    }
}

void WinForm::SettleFocus() {
    settling_ = false;
    if (!form_.Visible() || !IsActive()) {
        return;
    }
    if (WinControl* holder = WinControl::Of(::GetFocus())) {
        forms::Control& model = holder->Model();
        if (&model.Owner() == &form_ && &model != form_.ActiveControl()) {
            form_.MoveFocus(model);
        }
    }
    RestoreFocus();
}

void WinForm::RestoreFocus() const {
    if (const forms::Control* active = form_.ActiveControl(); active != nullptr && active->CanFocus()) {
        byModel_.at(active)->TakeFocus();
    }
}

} // namespace desktop::windows
