#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/FormPeer.h"
#include "forms/Session.h"

namespace forms {

/// A window of the program. A form is a class whose members are its controls; it overrides the On... members
/// for what it does. It loads at its first Show or at Load(), stands among the session's open forms until it
/// is unloaded, and may be shown again after that, in a new window. Lengths are twips.
class Form {
  public:
    Form(Session& session, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    Session& GetSession() const { return session_; }
    forms::Desktop& Desktop() const { return session_.Desktop(); }
    const std::vector<Control*>& Controls() const { return controls_; }
    /// Those of one kind, in the order of their making.
    template <class Kind>
    std::vector<Kind*> ControlsOf() const {
        std::vector<Kind*> found;
        for (Control* control : controls_) {
            if (auto* one = dynamic_cast<Kind*>(control)) {
                found.push_back(one);
            }
        }
        return found;
    }

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption);

    /// Outer place and size on the screen; until the desktop has placed the form, Left and Top are its wish.
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    void Move(double left, double top);
    /// The window may refuse a size beyond its bounds: the form then has the nearest one that it takes.
    void Resize(double width, double height);
    /// True if the user may change the size.
    bool Resizable() const { return resizable_; }
    /// What shows between the controls.
    Colour BackColor() const { return backColor_; }
    /// True once the program has chosen the place itself; otherwise the desktop puts the form in the middle.
    bool Placed() const { return placed_; }

    /// Makes the window and runs OnLoad. Nothing happens if the form is loaded.
    void Load();
    void Show();
    /// Shows the form so that no other takes input, and returns when it is gone.
    void ShowModal();
    /// Closes the form unless it refuses. False if it refused.
    bool Unload();
    /// The user presses the window's close box.
    bool UserClose() { return Unload(); }
    /// False while the form would refuse to close. Only asks.
    virtual bool MayClose() const { return true; }
    /// The user logs off: the form closes, and one that refuses at least puts back what is not its own.
    void SessionEnds();

    bool Loaded() const { return loaded_; }
    bool Visible() const { return visible_; }
    std::uintptr_t hWnd() const { return peer_ ? peer_->Handle() : 0; }

    // The focus.
    Control* ActiveControl() const { return active_; }
    /// Moves the focus: the control that had it is told first. False if the focus does not end there, because
    /// the control cannot take it or the one that lost it took it back.
    bool MoveFocus(Control& control);
    /// The control that the Tab key goes to.
    Control* NextInTabOrder(bool backward) const;

    /// True from the moment that the form has agreed to close: it then takes no more of what the user does,
    /// also where its last steps let waiting messages run.
    bool Leaving() const { return leaving_; }

    /// The user presses a key: the form first, then Escape, Enter and Tab, then the control with the focus.
    void UserKey(int virtualKey, bool shift = false);
    /// The user asks for help: the handbook opens where it tells of this form.
    void UserHelp();
    /// The user types a character without a virtual key of interest.
    void UserCharacter(char32_t character);
    /// The user has given the window this size.
    void UserResize(double width, double height);

    /// Runs a handler under the session's rule for failures that nobody traps.
    void Dispatch(const std::function<void()>& handler) { session_.Dispatch(handler); }

    /// True if the mouse pointer stands on this control.
    bool PointerIsOver(const Control& control) const { return peer_ && peer_->PointerIsOver(control); }

    // For controls.
    std::uintptr_t HandleOf(const Control& control) const { return peer_ ? peer_->HandleOf(control) : 0; }
    void Register(Control& control) { controls_.push_back(&control); }
    void ControlChanged(Control& control, Aspect aspect);

  protected:
    virtual void OnLoad() {}
    virtual void OnActivate() {}
    virtual void OnResize() {}
    /// A key before any control sees it; a handler that makes it 0 keeps it.
    virtual void OnKeyDown(int& /*virtualKey*/) {}
    /// False refuses the closing.
    virtual bool OnQueryUnload() { return true; }
    virtual void OnUnload() {}
    /// The anchor of the heading below which the handbook tells of the form as it stands; none for its
    /// beginning.
    virtual std::string HandbookSection() const { return {}; }
    /// The user logs off while the form refuses to close; the program may be gone a moment later.
    virtual void OnSessionEnd() {}

    // Both before the form loads.
    void SetResizable(bool resizable) { resizable_ = resizable; }
    void SetBackColor(Colour colour) { backColor_ = colour; }

  private:
    void TellPeer();
    void RescueFocus();
    void PressButton(bool (*wanted)(const class CommandButton&)) const;

    Session& session_;
    std::string name_;
    std::vector<Control*> controls_;
    std::unique_ptr<FormPeer> peer_;
    std::string caption_;
    double left_ = 0;
    double top_ = 0;
    double width_ = 0;
    double height_ = 0;
    Colour backColor_ = colour::ButtonFace;
    bool resizable_ = false;
    bool placed_ = false;
    bool loaded_ = false;
    bool visible_ = false;
    bool unloading_ = false;
    bool leaving_ = false;
    Control* active_ = nullptr;
};

} // namespace forms
