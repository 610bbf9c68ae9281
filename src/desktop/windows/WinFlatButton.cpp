#include <utility>

#include "desktop/windows/AccessibleButton.h"
#include "desktop/windows/Colours.h"
#include "desktop/windows/PictureWindow.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/cmdButtonXP.h"

namespace desktop::windows {

namespace {

/// The buttons of the mouse, as its messages tell which are held.
constexpr WPARAM AnyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;

class WinFlatButton final : public WinControl {
  public:
    WinFlatButton(forms::cmdButtonXP& control, WinForm& form, const WindowPlace& place);

    bool IsNamed() const override { return true; }

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    // A button that is off takes the mouse all the same, without an effect, and tells what it is for.
    bool ShowsEnabled() const override { return model_.WindowEnabled(); }
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Pressed();
    void Released(UINT message, WPARAM held, POINT place);

    forms::cmdButtonXP& model_;
    bool clicking_ = false; // the left button has gone down here
};

WinFlatButton::WinFlatButton(forms::cmdButtonXP& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, PlainWindowClass()), model_(control) {}

void WinFlatButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        ::InvalidateRect(Window(), nullptr, FALSE);
    } else if (aspect == forms::Aspect::Enabled) {
        ::NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Window(), OBJID_CLIENT, CHILDID_SELF);
    }
}

// The mouse stays with the button until all of its own are let go, wherever that is.
void WinFlatButton::Pressed() {
    if (::GetCapture() != Window()) { // else the window would be told that it loses the mouse
        ::SetCapture(Window());
    }
    model_.UserMouseDown();
}

void WinFlatButton::Released(UINT message, WPARAM held, POINT place) {
    const bool clicks = message == WM_LBUTTONUP && std::exchange(clicking_, false);
    model_.UserMouseUp();
    if ((held & AnyButton) == 0 && ::GetCapture() == Window()) {
        ::ReleaseCapture();
    }
    RECT area{};
    ::GetClientRect(Window(), &area);
    if (clicks && ::PtInRect(&area, place) != FALSE) {
        model_.UserClick();
    }
}

LRESULT WinFlatButton::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE:
        model_.UserMouseMove();
        return 0;
    case WM_LBUTTONDBLCLK:
        model_.UserDblClick();
        return 0;
    case WM_LBUTTONDOWN:
        clicking_ = true;
        Pressed();
        return 0;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_XBUTTONDOWN:
    case WM_XBUTTONDBLCLK:
        Pressed();
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
    case WM_XBUTTONUP:
        Released(message, wParam, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        return 0;
    case WM_CAPTURECHANGED: // another window has taken the mouse away
        clicking_ = false;
        model_.UserMouseUp();
        return 0;
    case WM_GETOBJECT:
        if (static_cast<LONG>(lParam) == OBJID_CLIENT) {
            return AnswerAssistant(Window(), wParam);
        }
        break;
    case MessageIsOff:
        return model_.Enabled() ? FALSE : TRUE;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
        PaintPicture(Window(), {ToColourRef(model_.ShownBackColor()), model_.pictNormal(), nullptr, {}});
        return 0;
    default:
        break;
    }
    return WinControl::Received(message, wParam, lParam);
}

} // namespace

std::unique_ptr<WinControl> MakeFlatButton(forms::cmdButtonXP& control, WinForm& form,
                                           const WindowPlace& place) {
    return std::make_unique<WinFlatButton>(control, form, place);
}

} // namespace desktop::windows
