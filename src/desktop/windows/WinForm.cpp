#include "desktop/windows/WinForm.h"

#include <algorithm>

#include "desktop/windows/ControlIds.h"
#include "desktop/windows/DpiFunctions.h"
#include "desktop/windows/FormWindow.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinDesktop.h"
#include "forms/AccessibleNames.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/MenuBar.h"
#include "forms/ReadingOrder.h"

namespace desktop::windows {

namespace {

constexpr UINT OnlyTheOrder = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW;

DWORD StyleFor(const forms::Form& form, bool first) {
    constexpr DWORD common = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    return common | (first ? WS_MINIMIZEBOX : 0U) | (form.Resizable() ? WS_THICKFRAME | WS_MAXIMIZEBOX : 0U);
}

DWORD ExtendedStyleFor(const forms::Form& form, bool first) {
    return WS_EX_CONTROLPARENT | (first || form.Resizable() ? 0U : static_cast<DWORD>(WS_EX_DLGMODALFRAME));
}

} // namespace

WinForm::WinForm(forms::Form& form, WinDesktop& desktop) : form_(form), desktop_(desktop) {
    MakeWindow();
    try {
        MakeControls();
        FormChanged();
        desktop_.Opened(form_, *this);
    } catch (...) {
        DestroyWindows();
        throw;
    }
}

void WinForm::MakeWindow() {
    const bool first = desktop_.TopWindow() == nullptr;
    window_ = MakeFormWindow(*this, form_.Name(), StyleFor(form_, first), ExtendedStyleFor(form_, first));
    if (window_ == nullptr) {
        throw base::OutOfMemory();
    }
    scale_ = Scale(DpiOf(window_));
}

WinForm::~WinForm() {
    DestroyWindows();
    desktop_.Gone(form_);
}

// The form and its controls may be gone already: what the windows do from here on is told to nobody.
void WinForm::DestroyWindows() {
    LeaveWindow(window_);
    for (const auto& control : controls_) {
        control->Leave();
    }
    WinForm::Hide();
    while (!controls_.empty()) { // what a control holds was made after it
        controls_.pop_back();
    }
    ::DestroyWindow(window_);
}

void WinForm::TellFailure() noexcept {
    desktop_.TellCaught();
}

void WinForm::MakeControls() {
    ::SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    for (forms::Control* control : form_.Controls()) {
        if (!control->IsMirrored()) {
            continue;
        }
        WinControl& made = Find(*control);
        if (dynamic_cast<const forms::MenuBar*>(control) != nullptr) {
            menuBar_ = &made;
        }
    }
    // A label finds the control that its access key goes to only when all are there.
    for (const auto& control : controls_) {
        control->Mirror(forms::Aspect::Caption);
    }
    PutInReadingOrder();
    PutLabelsBeforeFields();
}

WinControl& WinForm::Find(forms::Control& control) {
    const auto found = byModel_.find(&control);
    return found == byModel_.end() ? Add(control) : *found->second;
}

int WinForm::NumberOf(const forms::Control& control) const {
    const auto& all = form_.Controls();
    return FirstControl + static_cast<int>(std::find(all.begin(), all.end(), &control) - all.begin());
}

WinControl& WinForm::Add(forms::Control& control) {
    HWND parent = control.Container() == nullptr ? window_ : Find(*control.Container()).Window();
    WinControl& added = *controls_.emplace_back(MakeWinControl(control, *this, {parent, NumberOf(control)}));
    byModel_[&control] = &added;
    added.MirrorAll();
    return added;
}

// Assistive technology goes through windows from the upper to the lower. Texts and fields never overlap: they
// can lie in the order in which they are read, below all that may cover them.
void WinForm::PutInReadingOrder() {
    struct Siblings {
        std::vector<HWND> Windows;
        std::vector<forms::Area> Areas;
    };
    std::unordered_map<const forms::Control*, Siblings> byContainer;
    for (const auto& control : controls_) {
        const forms::Control& model = control->Model();
        if (control->IsRead()) {
            Siblings& siblings = byContainer[model.Container()];
            siblings.Windows.push_back(control->Window());
            siblings.Areas.push_back({model.Left(), model.Top(), model.Width(), model.Height()});
        }
    }
    for (const auto& [container, siblings] : byContainer) {
        for (const std::size_t at : forms::ReadingOrder(siblings.Areas)) {
            ::SetWindowPos(siblings.Windows[at], HWND_BOTTOM, 0, 0, 0, 0, OnlyTheOrder);
        }
    }
}

// Assistive technology takes the text right before a field for its name.
void WinForm::PutLabelsBeforeFields() {
    for (const auto& control : controls_) {
        const forms::Label* label = forms::OwnLabel(control->Model());
        HWND before = ::GetWindow(control->Window(), GW_HWNDPREV);
        if (label != nullptr && WindowOf(*label) != before) {
            ::SetWindowPos(WindowOf(*label), before == nullptr ? HWND_TOP : before, 0, 0, 0, 0, OnlyTheOrder);
        }
    }
}

// A control that shows no text of its own has it for assistive technology.
void WinForm::NameControls() {
    for (const auto& control : controls_) {
        NameControl(*control);
    }
}

void WinForm::NameControl(const WinControl& control) {
    if (control.IsNamed()) {
        const std::wstring name = ToWide(forms::AccessibleNameOf(control.Model()));
        ::SetWindowTextW(control.Window(), name.c_str());
    }
}

HWND WinForm::WindowOf(const forms::Control& control) const {
    const auto found = byModel_.find(&control);
    return found == byModel_.end() ? nullptr : found->second->Window();
}

std::uintptr_t WinForm::HandleOf(const forms::Control& control) {
    HWND window = WindowOf(control);
    return window == nullptr ? Handle() : reinterpret_cast<std::uintptr_t>(window);
}

// A control that the form has held back so far gets its window now. Some are known by their tool tip.
void WinForm::ControlChanged(forms::Control& control, forms::Aspect aspect) {
    const bool isNew = !byModel_.contains(&control);
    WinControl& mirrored = Find(control);
    mirrored.Mirror(aspect);
    if (isNew) {
        mirrored.Mirror(forms::Aspect::Caption);
        PutInReadingOrder();
        PutLabelsBeforeFields();
    }
    if (isNew || aspect == forms::Aspect::ToolTip) {
        NameControl(mirrored);
    }
}

void WinForm::FormChanged() {
    ::SetWindowTextW(window_, ToWide(form_.Caption()).c_str());
    ShowSize();
    ShowPlace();
}

// A form that could not be shown leaves those below it as they were.
void WinForm::Show(bool modal) {
    try {
        Appear(modal);
    } catch (...) {
        Hide();
        throw;
    }
}

void WinForm::Appear(bool modal) {
    NameControls();
    PlaceBars();
    HWND below = desktop_.TopWindow();
    if (below != nullptr) {
        ::SetWindowLongPtrW(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(below));
    }
    if (!form_.Placed()) {
        MoveToMiddle();
    }
    if (modal) {
        for (HWND other : desktop_.ShownWindows()) {
            if (::IsWindowEnabled(other) != FALSE) {
                disabledOwners_.push_back(other);
                ::EnableWindow(other, FALSE);
            }
        }
    }
    desktop_.Shown(form_);
    ::ShowWindow(window_, SW_SHOWNORMAL);
    ::SetForegroundWindow(window_);
    ::UpdateWindow(window_);
}

// The windows below are enabled again before this one goes: else the system would look for another window to
// work with, of another program.
void WinForm::Hide() {
    for (HWND owner : disabledOwners_) {
        ::EnableWindow(owner, TRUE);
    }
    disabledOwners_.clear();
    desktop_.Hidden(form_);
    ::ShowWindow(window_, SW_HIDE);
}

bool WinForm::PointerIsOver(const forms::Control& control) {
    HWND window = WindowOf(control);
    POINT pointer{};
    RECT area{};
    return window != nullptr && ::IsWindowVisible(window) != FALSE && ::GetCursorPos(&pointer) != FALSE &&
           ::GetWindowRect(window, &area) != FALSE && ::PtInRect(&area, pointer) != FALSE;
}

void WinForm::TimePassed(WPARAM timer) const {
    for (const auto& control : controls_) {
        if (static_cast<int>(timer) == NumberOf(control->Model())) {
            control->TimePassed();
            return;
        }
    }
}

// Another program can send this to a window that the user cannot reach.
void WinForm::Close() {
    if (form_.GetSession().TakesInput(form_) && ::IsWindowEnabled(window_) != FALSE) {
        form_.UserClose();
    }
}

bool WinForm::ShowPointer(LPARAM lParam) const {
    if (!desktop_.ShowsHourglass() || LOWORD(lParam) != HTCLIENT) {
        return false;
    }
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    return true;
}

bool WinForm::Reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto sender = [](LPARAM window) { return WinControl::Of(reinterpret_cast<HWND>(window)); };
    switch (message) {
    case WM_COMMAND:
        if (WinControl* control = sender(lParam)) {
            if (!control->Silent()) {
                control->Commanded(LOWORD(wParam), HIWORD(wParam));
            }
            return true;
        }
        return false;
    case WM_NOTIFY: {
        auto& header = *reinterpret_cast<NMHDR*>(lParam);
        WinControl* control = WinControl::Of(header.hwndFrom);
        if (control != nullptr) {
            result = control->Notified(header);
        }
        return control != nullptr;
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
        if (WinControl* control = sender(lParam)) {
            control->Scrolled(LOWORD(wParam), static_cast<std::int16_t>(HIWORD(wParam)));
            return true;
        }
        return false;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
        if (WinControl* control = sender(lParam)) {
            result = reinterpret_cast<LRESULT>(control->Colour(reinterpret_cast<HDC>(wParam)));
            return result != 0;
        }
        return false;
    default:
        return false;
    }
}

LRESULT WinForm::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (Reflect(message, wParam, lParam, result)) {
        return result;
    }
    if (KeyReceived(message, wParam, lParam)) {
        return 0;
    }
    switch (message) {
    case MessageSettleFocus:
        SettleFocus();
        return 0;
    case WM_CLOSE:
        Close();
        return 0;
    case WM_QUERYENDSESSION:
        return form_.GetSession().MayEnd() ? TRUE : FALSE;
    case WM_ENDSESSION:
        if (wParam != FALSE) {
            desktop_.SessionEnds(form_.GetSession());
        }
        return 0;
    case WM_COMMAND:
        if (menuBar_ != nullptr && lParam == 0) {
            menuBar_->Commanded(LOWORD(wParam), HIWORD(wParam));
        }
        return 0;
    case WM_TIMER:
        TimePassed(wParam);
        return 0;
    case WM_SETFOCUS:
        RestoreFocus();
        return 0;
    case WM_SETCURSOR:
        if (ShowPointer(lParam)) {
            return TRUE;
        }
        break;
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED) {
            Resized();
        }
        return 0;
    case WM_DPICHANGED:
        DensityChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
        return 0;
    case WM_ERASEBKGND:
        Erase(reinterpret_cast<HDC>(wParam));
        return TRUE;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        ColoursChanged(message, wParam, lParam);
        break;
    default:
        break;
    }
    return ::DefWindowProcW(window_, message, wParam, lParam);
}

} // namespace desktop::windows
