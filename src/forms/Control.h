#pragma once

#include <cstdint>
#include <string>

#include "forms/Colour.h"

namespace forms {

class ControlVisitor;
class Form;

/// What has changed in a control, for the peer that mirrors it.
enum class Aspect {
    Caption,
    Colours,
    Enabled,
    Font,
    Geometry,
    Items,
    Picture,
    Selection,
    Text,
    ToolTip,
    Value,
    Visible,
    ZOrder,
};

/// Font of a control; an empty name or a size of 0 (points) stands for the system's own.
struct ControlFont {
    std::string Name;
    double Size = 0;
    bool Bold = false;

    bool operator==(const ControlFont&) const = default;
};

/// A control of a form: its properties, and the calls by which a user reaches it. Lengths are twips,
/// positions count from the top left of the container. A control belongs to its form as a member and
/// registers itself there; a peer of the platform mirrors it. A setter that changes nothing tells nobody, but
/// for those that say so.
class Control {
  public:
    /// Position of an element that is not one of a control array.
    static constexpr int NoIndex = -1;

    Control(Form& form, std::string name, int index = NoIndex, Control* container = nullptr);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// Gives itself to the visitor as what it is: each kind is one class of this folder.
    virtual void Accept(ControlVisitor& visitor) = 0;

    Form& Owner() const { return form_; }
    /// False for a kind that peers leave out.
    virtual bool HasWindow() const { return true; }
    /// Hides a control that seldom has something to tell: until it is shown for the first time, the form's
    /// window knows nothing of it.
    void Withhold();
    /// True for a control that the form's window mirrors.
    bool IsMirrored() const { return HasWindow() && !withheld_; }
    const std::string& Name() const { return name_; }
    /// Number within a control array, or NoIndex.
    int Index() const { return index_; }
    /// The picture box that holds this control, or nullptr for the form itself.
    Control* Container() const { return container_; }

    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    void SetLeft(double left) { Move(left, top_, width_, height_); }
    void SetTop(double top) { Move(left_, top, width_, height_); }
    void SetWidth(double width) { Move(left_, top_, width, height_); }
    void SetHeight(double height) { Move(left_, top_, width_, height); }
    void Move(double left, double top, double width, double height);

    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool Enabled() const { return enabled_; }
    virtual void SetEnabled(bool enabled);

    /// True if this control and all that hold it are visible, or enabled.
    bool IsShown() const;
    bool IsUsable() const;
    /// True if a user can reach this control with the mouse: shown and enabled, in a form that stays.
    bool TakesMouse() const;

    const std::string& ToolTipText() const { return toolTip_; }
    void SetToolTipText(const std::string& text);

    const ControlFont& Font() const { return font_; }
    void SetFont(const ControlFont& font);

    Colour ForeColor() const { return foreColor_; }
    void SetForeColor(Colour colour);
    Colour BackColor() const { return backColor_; }
    /// The background that shows in the control: its own, or that of what holds it.
    Colour ShownBackColor() const;
    void SetBackColor(Colour colour);

    /// Handle of the control, for Desktop::LockWindowUpdate; 0 until its form is loaded.
    std::uintptr_t hWnd() const;

    /// Place in the tab order; controls without one keep the order of their making, after the others.
    int TabIndex() const { return tabIndex_; }
    void SetTabIndex(int index) { tabIndex_ = index; }
    static constexpr int NoTabIndex = 1 << 20;

    /// True for a kind that takes the focus at all.
    virtual bool TakesFocus() const { return false; }
    /// True if the focus can go here now.
    bool CanFocus() const { return TakesFocus() && TakesMouse(); }
    /// The program moves the focus here. Nothing happens if CanFocus() is false.
    void SetFocus();

    /// Name that assistive technology reads for a control without a text of its own; empty: the label before
    /// it.
    const std::string& AccessibleName() const { return accessibleName_; }
    void SetAccessibleName(const std::string& name) { accessibleName_ = name; }

    /// The text that the control itself shows and that tells what it is for, as it is read aloud; empty for a
    /// kind that shows none.
    virtual std::string SpokenText() const { return {}; }
    /// True for a kind that a user knows by the label beside it, as it shows no such text.
    virtual bool IsNamedByLabel() const { return false; }
    /// True for one to which that label belongs; others share it.
    virtual bool OwnsLabel() const { return IsNamedByLabel(); }

    /// The character that reaches the control together with Alt, in capitals; empty for none.
    virtual std::string AccessKey() const { return {}; }
    /// The user presses that key. False if it reaches nothing here.
    virtual bool UserAccessKey() { return UserClick(); }

    void BringToFront();

    // What the form tells a control. Handlers are set by the form that owns it.
    virtual void GotFocus() {}
    virtual void LostFocus() {}
    /// A character that the keyboard gives this control while it has the focus; false if it has no use for
    /// it.
    virtual bool TypeKey(char32_t /*character*/) { return false; }

    /// A key of the user that has reached this control, none of Tab, Enter and Escape; 0 for one that forms
    /// do not tell apart. The form sees it. True: the control has used it, and the toolkit's own has no more
    /// use for it.
    virtual bool UserKey(int virtualKey, bool shift);

    /// A click of the user with the mouse or the control's access key: moves the focus here first, and is
    /// lost if the focus does not stay here. False if a user could not click (hidden, disabled, no such
    /// kind).
    virtual bool UserClick() { return false; }

  protected:
    void Changed(Aspect aspect);

  private:
    Form& form_;
    std::string name_;
    int index_;
    Control* container_;
    double left_ = 0;
    double top_ = 0;
    double width_ = 0;
    double height_ = 0;
    bool visible_ = true;
    bool withheld_ = false;
    bool enabled_ = true;
    int tabIndex_ = NoTabIndex;
    ControlFont font_;
    Colour foreColor_ = colour::WindowText;
    Colour backColor_ = colour::Transparent;
    std::string toolTip_;
    std::string accessibleName_;
};

} // namespace forms
