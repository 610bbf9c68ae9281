#pragma once

#include <string>

#include "desktop/windows/Win32.h"

#include "forms/Control.h"

namespace desktop::windows {

class WinForm;

/// Where a new control's window goes, and its number.
struct WindowPlace {
    HWND Parent;
    int Id;
};

/// The real control behind one control of a form. Mirror() brings the window in line with the form's control
/// and is silent (what the window reports meanwhile is dropped); what the user does reaches the form's
/// control through its User... calls alone, after which the window is brought in line again. There is thus
/// one truth, and no loop. Each kind is one small class; Windows moves no focus by itself, the form does.
class WinControl {
  public:
    /// `className` nullptr: a control without a window.
    WinControl(forms::Control& control, WinForm& form, const WindowPlace& place, const wchar_t* className,
               DWORD style = 0, DWORD extendedStyle = 0);
    virtual ~WinControl();
    WinControl(const WinControl&) = delete;
    WinControl& operator=(const WinControl&) = delete;

    forms::Control& Model() const { return model_; }
    /// nullptr for a kind without a window.
    HWND Window() const { return window_; }

    /// The control of a window; nullptr for a window that is none.
    static WinControl* Of(HWND window);

    /// From now on what the window does reaches neither the form nor its control.
    void Leave() { left_ = true; }

    virtual void Mirror(forms::Aspect aspect);
    void MirrorAll();

    /// The form has moved the focus here.
    virtual void TakeFocus();

    /// A key that is none of Tab, Enter and Escape. True keeps it from the window.
    virtual bool KeyPressed(int virtualKey, bool shift);
    /// True if the window needs Enter and Escape itself at the moment.
    virtual bool KeepsEnterAndEscape() const { return false; }

    // What the window tells its parent. Dropped while the control is being mirrored.
    virtual void Notified(UINT /*code*/) {}
    virtual void Commanded(int /*id*/, UINT code) { Notified(code); }
    virtual LRESULT Notified(NMHDR& /*header*/) { return 0; }
    virtual void Scrolled(int /*request*/, int /*position*/) {}
    /// Asked for its colours before it draws; nullptr for the system's own.
    virtual HBRUSH Colour(HDC device);
    /// A number of milliseconds has passed that it asked for.
    virtual void TimePassed() {}

    /// The form's focus has moved, here or elsewhere.
    virtual void FormFocusMoved() {}

    // What the kind is to the form's window.
    /// True if it keeps to the edges of the window, whatever its size.
    virtual bool FollowsWindow() const { return false; }
    /// True for a text or a field, which never covers another: they lie in the order in which they are read.
    virtual bool IsRead() const { return false; }
    /// True if its window shows no text of its own: assistive technology finds its name there.
    virtual bool IsNamed() const { return false; }

    bool Silent() const { return silent_ > 0; }

    /// For as long as it lives, what the window reports comes from the program and not from the user.
    class Silence {
      public:
        explicit Silence(WinControl& control) : control_(control) { ++control_.silent_; }
        ~Silence() { --control_.silent_; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

      private:
        WinControl& control_;
    };

  protected:
    WinForm& Form() const { return form_; }

    /// What is particular to the kind.
    virtual void MirrorContent(forms::Aspect /*aspect*/) {}
    virtual void Place();
    virtual bool ShowsEnabled() const { return model_.Enabled(); }

    /// A message to the window. PassOn() gives it to the window's own procedure.
    virtual LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT PassOn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(window_, message, wParam, lParam);
    }

    /// A press of the left mouse button, before the window sees it. True keeps it from the window.
    virtual bool MousePressed();

    /// A click of the user; the window shows afterwards what the form made of it.
    void Click();

    void SetCaption(const std::string& text) const;
    void MoveTo(const RECT& area) const;
    bool HasStyle(DWORD style) const;
    HFONT FontOf() const;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

    forms::Control& model_;
    WinForm& form_;
    HWND window_ = nullptr;
    /// What the window's class does with its messages.
    WNDPROC own_ = nullptr;
    bool left_ = false;
    int silent_ = 0;
};

} // namespace desktop::windows
