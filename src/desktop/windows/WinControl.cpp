#include "desktop/windows/WinControl.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "desktop/windows/Colours.h"
#include "desktop/windows/Fonts.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinForm.h"
#include "forms/Form.h"

namespace desktop::windows {

using forms::Aspect;

namespace {

// All that a new window has to show. The font brings the place with it, the selection belongs to the text and
// the order of depth to the making, and the colours are asked for when it is drawn.
constexpr std::array AllAspects{Aspect::Font,  Aspect::Caption, Aspect::Picture, Aspect::Items,  Aspect::Text,
                                Aspect::Value, Aspect::ToolTip, Aspect::Enabled, Aspect::Visible};

constexpr UINT OutOfThePlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

// Which control a window belongs to is asked at every message: a table in the program answers at once, a
// property of the window is kept by the system.
std::unordered_map<HWND, WinControl*>& ControlsByWindow() {
    static std::unordered_map<HWND, WinControl*> controls;
    return controls;
}

WinControl* Known(HWND window) {
    const auto found = ControlsByWindow().find(window);
    return found == ControlsByWindow().end() ? nullptr : found->second;
}

} // namespace

WinControl::WinControl(forms::Control& control, WinForm& form, const WindowPlace& place,
                       const wchar_t* className, DWORD style, DWORD extendedStyle)
    : model_(control), form_(form) {
    if (className == nullptr) {
        return;
    }
    const DWORD shown = control.Visible() ? WS_VISIBLE : 0;
    window_ = ::CreateWindowExW(
        extendedStyle, className, L"", style | shown | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, place.Parent,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(place.Id)), ::GetModuleHandleW(nullptr), nullptr);
    if (window_ == nullptr) {
        throw base::OutOfMemory();
    }
    ControlsByWindow()[window_] = this;
    own_ = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    // A control that is made later lies above those before it.
    ::SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, OutOfThePlace);
}

WinControl::~WinControl() {
    if (window_ != nullptr) {
        Leave();
        ::DestroyWindow(window_);
    }
}

WinControl* WinControl::Of(HWND window) {
    WinControl* control = Known(window);
    return control == nullptr || control->left_ ? nullptr : control;
}

void WinControl::MirrorAll() {
    for (const Aspect aspect : AllAspects) {
        Mirror(aspect);
    }
}

void WinControl::Mirror(Aspect aspect) {
    const Silence silence(*this);
    if (window_ == nullptr) {
        MirrorContent(aspect);
        return;
    }
    switch (aspect) {
    case Aspect::Geometry:
        Place();
        break;
    case Aspect::Visible:
        if (HasStyle(WS_VISIBLE) != model_.Visible()) {
            ::ShowWindow(window_, model_.Visible() ? SW_SHOWNA : SW_HIDE);
        }
        break;
    case Aspect::Enabled:
        if (HasStyle(WS_DISABLED) == ShowsEnabled()) {
            ::EnableWindow(window_, ShowsEnabled() ? TRUE : FALSE);
        }
        break;
    case Aspect::ToolTip:
        form_.Tips().Set(window_, model_.ToolTipText());
        break;
    case Aspect::Font:
        Send(WM_SETFONT, reinterpret_cast<WPARAM>(FontOf()), TRUE);
        Place();
        break;
    case Aspect::Colours:
        ::InvalidateRect(window_, nullptr, TRUE);
        break;
    case Aspect::ZOrder:
        ::SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, OutOfThePlace);
        break;
    default:
        break;
    }
    MirrorContent(aspect);
}

bool WinControl::HasStyle(DWORD style) const {
    return (static_cast<DWORD>(::GetWindowLongW(window_, GWL_STYLE)) & style) != 0;
}

HFONT WinControl::FontOf() const {
    return form_.FontFor(model_.Font());
}

void WinControl::Place() {
    MoveTo(form_.Scaling().ToDots(model_.Left(), model_.Top(), model_.Width(), model_.Height()));
}

void WinControl::MoveTo(const RECT& area) const {
    ::SetWindowPos(window_, nullptr, area.left, area.top, std::max(0L, area.right - area.left),
                   std::max(0L, area.bottom - area.top), SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinControl::SetCaption(const std::string& text) const {
    ::SetWindowTextW(window_, ToWide(text).c_str());
}

HBRUSH WinControl::Colour(HDC device) {
    const forms::Colour background = model_.ShownBackColor();
    if (::IsWindowEnabled(window_) != FALSE) {
        ::SetTextColor(device, TextColourOf(model_));
    }
    ::SetBkColor(device, ToColourRef(background));
    return BrushFor(device, background);
}

void WinControl::TakeFocus() {
    if (window_ != nullptr && ::GetFocus() != window_ && form_.IsActive()) {
        const Silence silence(*this);
        ::SetFocus(window_);
    }
}

void WinControl::Click() {
    model_.UserClick();
    Mirror(Aspect::Value);
}

bool WinControl::KeyPressed(int virtualKey, bool shift) {
    return model_.UserKey(virtualKey, shift);
}

// The focus is settled before the window sees the press. If the control that had it takes it back (perhaps
// after a message box that ran inside this call), the press is lost, and with it the click.
bool WinControl::MousePressed() {
    return model_.CanFocus() && !model_.Owner().MoveFocus(model_);
}

LRESULT WinControl::PassOn(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::CallWindowProcW(own_, window_, message, wParam, lParam);
}

LRESULT WinControl::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    return PassOn(message, wParam, lParam);
}

LRESULT WinControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_KEYDOWN:
        if (form_.KeyPressed(wParam, lParam, this)) {
            return 0;
        }
        break;
    case WM_CHAR:
        // Their keys have been dealt with when they went down.
        if (wParam == forms::key::Tab ||
            ((wParam == forms::key::Enter || wParam == forms::key::Escape) && !KeepsEnterAndEscape())) {
            return 0;
        }
        break;
    case WM_SYSKEYDOWN:
        form_.ShowAccessKeys();
        break;
    case WM_SYSCHAR:
        if (form_.AccessKeyPressed(static_cast<wchar_t>(wParam))) {
            return 0;
        }
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (MousePressed()) {
            return 0;
        }
        break;
    case WM_MOUSEWHEEL:
        // Rolling over a control on the way elsewhere must not change it.
        if (::GetFocus() != window_) {
            return ::SendMessageW(form_.Window(), message, wParam, lParam);
        }
        break;
    case WM_SETFOCUS:
        if (!Silent()) {
            form_.SettleFocusLater();
        }
        break;
    default:
        break;
    }
    return Received(message, wParam, lParam);
}

LRESULT CALLBACK WinControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    WinControl* self = Known(window);
    if (self == nullptr) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        ControlsByWindow().erase(window);
        self->window_ = nullptr;
    }
    if (message == WM_NCDESTROY || self->left_) {
        return ::CallWindowProcW(self->own_, window, message, wParam, lParam);
    }
    LRESULT result = 0;
    WinForm& form = self->form_;
    form.Guard([&] { result = self->Handle(message, wParam, lParam); });
    return result;
}

} // namespace desktop::windows
