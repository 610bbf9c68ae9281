#pragma once

#include <functional>

namespace forms {

class Form;

/// A key that has gone down in the window of a form.
struct KeyPress {
    /// Keys that are held besides, other than Shift.
    enum class With { Nothing, Ctrl, Other };

    int VirtualKey = 0; ///< of forms::key; 0 for one that forms do not tell apart
    bool Shift = false;
    With Held = With::Nothing;
    bool Repeated = false;      ///< it is being held down
    bool KeptByControl = false; ///< Enter and Escape are for the control itself, whose list is open
};

/// The window, while one of its keys finds its way.
class KeyWindow {
  public:
    /// Makes the form's focus and that of the toolkit one.
    virtual void SettleFocus() = 0;
    /// The user goes by the Tab key: from now on the window shows where the focus is.
    virtual void ShowFocus() = 0;

  protected:
    ~KeyWindow() = default;
};

/// The way of a key, alike on every desktop: F1 opens the handbook; Tab, Enter and Escape go to the form, any
/// other to the control that it has reached by `toControl`, which answers as this does. Without a control the
/// form gets what the window itself has received while nothing has the focus. True: dealt with, the toolkit
/// does nothing more.
bool RouteKey(Form& form, const KeyPress& press, KeyWindow& window, const std::function<bool()>& toControl);

} // namespace forms
