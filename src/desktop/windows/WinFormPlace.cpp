// Where a form's window stands, and how large it is.
#include <algorithm>
#include <limits>
#include <utility>

#include "desktop/windows/Colours.h"
#include "desktop/windows/DpiFunctions.h"
#include "desktop/windows/Raised.h"
#include "desktop/windows/WinDesktop.h"
#include "desktop/windows/WinForm.h"
#include "forms/Form.h"

namespace desktop::windows {

namespace {

DWORD LongOf(HWND window, int index) {
    return static_cast<DWORD>(::GetWindowLongW(window, index));
}

/// A part of a window's width or height that is placed so that it stays within the room.
LONG Within(LONG start, LONG size, LONG roomStart, LONG roomEnd) {
    return std::max(roomStart, std::min(start, roomEnd - size));
}

} // namespace

// Of the frame alone: a menu's line belongs to the height that the form has asked for.
RECT WinForm::Margins() const {
    return FrameMargins(LongOf(window_, GWL_STYLE), LongOf(window_, GWL_EXSTYLE), false, scale_.Dpi());
}

// The inside is what the form asked for, whatever title bar and frame this desktop has. The design of a form
// that the user may resize counts the frame at its sides, and so does its height the title bar and the menu.
SIZE WinForm::OuterSize(const forms::WindowSize& size) const {
    const RECT margins = Margins();
    const double frame = form_.Resizable() ? forms::ResizeFrameWidth : 0;
    const LONG width = scale_.ToDots(size.Width - frame) + margins.right - margins.left;
    const LONG height = menuBar_ == nullptr ? scale_.ToDots(size.Height - forms::TitleBarHeight) +
                                                  margins.bottom - margins.top
                                            : scale_.ToDots(size.Height) + margins.bottom;
    return {width, height};
}

SIZE WinForm::OuterSize() const {
    return OuterSize({form_.Width(), form_.Height()});
}

// The bounds that Windows itself would begin with, those of the screens, are for windows that the user drags.
forms::WindowSize WinForm::Bounded(const forms::WindowSize& wanted) {
    constexpr LONG any = std::numeric_limits<LONG>::max();
    ::MINMAXINFO bounds{};
    bounds.ptMaxSize = bounds.ptMaxTrackSize = {any, any};
    ::SendMessageW(window_, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&bounds));
    const SIZE outer = OuterSize(wanted);
    const auto beyond = [&](LONG size, LONG least, LONG most) {
        return scale_.ToTwips(static_cast<int>(std::max(least, std::min(size, most)) - size));
    };
    return {wanted.Width + beyond(outer.cx, bounds.ptMinTrackSize.x, bounds.ptMaxTrackSize.x),
            wanted.Height + beyond(outer.cy, bounds.ptMinTrackSize.y, bounds.ptMaxTrackSize.y)};
}

void WinForm::ShowSize() {
    if (form_.Width() <= 0 || form_.Height() <= forms::TitleBarHeight) {
        return;
    }
    const SIZE size = OuterSize();
    const Raised showing(showingSize_);
    ::SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinForm::ShowPlace() {
    if (!form_.Placed() || (form_.Left() == shownLeft_ && form_.Top() == shownTop_)) {
        return;
    }
    shownLeft_ = form_.Left();
    shownTop_ = form_.Top();
    const Scale screen = ScreenScale();
    // The frame that resizes a window is invisible on a present desktop, and lies outside its place.
    const LONG outside = form_.Resizable() ? -Margins().left - screen.ToDots(forms::ResizeFrameWidth / 2) : 0;
    ::SetWindowPos(window_, nullptr, screen.ToDots(shownLeft_) - outside, screen.ToDots(shownTop_), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WinForm::MoveToMiddle() {
    HWND below = desktop_.TopWindow();
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    ::GetMonitorInfoW(::MonitorFromWindow(below, MONITOR_DEFAULTTOPRIMARY), &screen);
    const RECT& room = screen.rcWork;
    RECT around = room;
    if (below != nullptr) {
        ::GetWindowRect(below, &around);
    }
    const SIZE size = OuterSize();
    const LONG left = Within((around.left + around.right - size.cx) / 2, size.cx, room.left, room.right);
    const LONG top = Within((around.top + around.bottom - size.cy) / 2, size.cy, room.top, room.bottom);
    ::SetWindowPos(window_, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE WinForm::AreaSize() const {
    RECT area{};
    ::GetClientRect(window_, &area);
    return {area.right, area.bottom};
}

void WinForm::PlaceBars() {
    for (const auto& control : controls_) {
        if (control->FollowsWindow()) {
            control->Mirror(forms::Aspect::Geometry);
        }
    }
}

void WinForm::Resized() {
    PlaceBars();
    RECT outer{};
    ::GetWindowRect(window_, &outer);
    const SIZE wanted = OuterSize();
    const LONG width = outer.right - outer.left;
    const LONG height = outer.bottom - outer.top;
    if (showingSize_ || !form_.Visible() || (width == wanted.cx && height == wanted.cy)) {
        return;
    }
    form_.UserResize(form_.Width() + scale_.ToTwips(static_cast<int>(width - wanted.cx)),
                     form_.Height() + scale_.ToTwips(static_cast<int>(height - wanted.cy)));
}

void WinForm::DensityChanged(UINT dpi, const RECT& place) {
    scale_ = Scale(dpi);
    const Fonts before = std::exchange(fonts_, {}); // until no window uses them
    for (const auto& control : controls_) {
        for (const forms::Aspect aspect :
             {forms::Aspect::Font, forms::Aspect::Geometry, forms::Aspect::Picture, forms::Aspect::Items}) {
            control->Mirror(aspect);
        }
    }
    // A window that fills the screen goes on filling it; one of a fixed size keeps the size of its design.
    const SIZE size =
        form_.Resizable() ? SIZE{place.right - place.left, place.bottom - place.top} : OuterSize();
    {
        const Raised showing(showingSize_);
        ::SetWindowPos(window_, nullptr, place.left, place.top, size.cx, size.cy,
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
    Resized();
    DrawAnew();
}

void WinForm::Erase(HDC device) const {
    RECT area{};
    ::GetClientRect(window_, &area);
    ::FillRect(device, &area, BrushFor(device, form_.BackColor()));
}

// The system tells windows of their own alone; what they hold may keep colours as well.
void WinForm::ColoursChanged(UINT message, WPARAM wParam, LPARAM lParam) {
    for (const auto& control : controls_) {
        if (message == WM_SYSCOLORCHANGE && control->Window() != nullptr) {
            ::SendMessageW(control->Window(), message, wParam, lParam);
        }
        control->Mirror(forms::Aspect::Colours);
    }
    DrawAnew();
}

void WinForm::DrawAnew() const {
    ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

} // namespace desktop::windows
