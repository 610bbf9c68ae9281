#pragma once

#include <cstdint>

#include "forms/Control.h"

namespace forms {

/// Twips of a form's height that count for its title bar; the controls fill what is below. A fixed number of
/// the design, as the title bars of desktops differ. The width counts no frame, but for a form that the user
/// may resize: its design leaves this much for the frame at both sides.
inline constexpr double TitleBarHeight = 375;
inline constexpr double ResizeFrameWidth = 115;

/// Size of a form's window, in twips.
struct WindowSize {
    double Width = 0;
    double Height = 0;

    bool operator==(const WindowSize&) const = default;
};

/// The real window behind a form. The form tells it what the program has changed; it turns what the user does
/// into the public User... calls of the controls and of the form. Peers are made when a form loads, with all
/// its controls, and go with the form.
class FormPeer {
  public:
    virtual ~FormPeer() = default;

    virtual void ControlChanged(Control& control, Aspect aspect) = 0;
    /// Caption, place or size of the form itself has changed.
    virtual void FormChanged() = 0;
    /// The size that the window takes when it is given this one: the window is asked for its bounds first.
    virtual WindowSize Bounded(const WindowSize& wanted) { return wanted; }
    virtual void Show(bool modal) = 0;
    virtual void Hide() = 0;
    /// The focus has moved to this control, or to none.
    virtual void FocusMoved(Control* control) = 0;
    /// True if the mouse pointer stands within the control's rectangle on the screen.
    virtual bool PointerIsOver(const Control& /*control*/) { return false; }
    /// Handle of the window, pointer-wide.
    virtual std::uintptr_t Handle() = 0;
    /// Handle of a control, for Desktop::LockWindowUpdate; the window's own where controls have none.
    virtual std::uintptr_t HandleOf(const Control& /*control*/) { return Handle(); }
};

} // namespace forms
