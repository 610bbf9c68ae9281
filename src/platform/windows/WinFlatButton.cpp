#include "platform/windows/WinFlatButton.h"

#include "platform/windows/Colours.h"
#include "platform/windows/PictureWindow.h"

namespace platform::windows {

WinFlatButton::WinFlatButton(cmdButtonXP& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, PlainWindowClass()), model_(control) {}

void WinFlatButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        ::InvalidateRect(Window(), nullptr, FALSE);
    }
}

void WinFlatButton::Released(POINT place) {
    const bool pressed = model_.blnMouseDown();
    model_.UserMouseUp();
    if (::GetCapture() == Window()) {
        ::ReleaseCapture();
    }
    RECT area{};
    ::GetClientRect(Window(), &area);
    if (pressed && ::PtInRect(&area, place) != FALSE) {
        model_.UserClick();
    }
}

LRESULT WinFlatButton::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE:
        model_.UserMouseMove();
        return 0;
    case WM_LBUTTONDOWN:
        ::SetCapture(Window());
        model_.UserMouseDown();
        return 0;
    case WM_LBUTTONDBLCLK:
        model_.UserDblClick();
        return 0;
    case WM_LBUTTONUP:
        Released({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        return 0;
    case WM_CAPTURECHANGED: // another window has taken the mouse away
        model_.UserMouseUp();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
        PaintPicture(Window(), {ToColourRef(model_.ShownBackColor()), model_.pictNormal(), nullptr, {}});
        return 0;
    default:
        return WinControl::Received(message, wParam, lParam);
    }
}

} // namespace platform::windows
