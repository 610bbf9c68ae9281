#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A button of a toolbar, or the gap between two groups of them.
struct ToolbarButton {
    /// Names of pictures among the program's own: at rest, and under the mouse.
    std::string Image;
    std::string HotImage;
    std::string ToolTipText;
    /// What assistive technology reads where there is no tooltip.
    std::string AccessibleName;
    bool Separator = false;
    bool Enabled = true;
};

/// A row of picture buttons, counted from 1. It takes no focus.
class Toolbar : public Control {
  public:
    Toolbar(Form& form, std::string name, Control* container = nullptr)
        : Control(form, std::move(name), NoIndex, container) {}

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    /// The user has pressed the button with this number.
    std::function<void(int)> OnButtonClick;

    void AddButton(ToolbarButton button);
    int ButtonCount() const { return static_cast<int>(buttons_.size()); }
    /// ErrorSubscriptOutOfRange outside 1 to ButtonCount().
    const ToolbarButton& Button(int number) const;
    void SetButtonEnabled(int number, bool enabled);
    void SetButtonToolTipText(int number, const std::string& text);

    /// False if a user could not: no such button, a separator, a disabled one, a hidden toolbar.
    bool UserClickButton(int number);

  private:
    std::vector<ToolbarButton> buttons_;
};

} // namespace forms
