#pragma once

#include <functional>

#include "forms/CaptionedControl.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A push button. "&" in the caption marks its access key.
class CommandButton : public CaptionedControl {
  public:
    using CaptionedControl::CaptionedControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    std::function<void()> OnClick;

    /// The button that Enter presses while no other button has the focus.
    bool Default() const { return default_; }
    void SetDefault(bool on) {
        default_ = on;
        Changed(Aspect::Value);
    }
    /// True for the button that Enter presses now.
    bool IsPressedByEnter() const;
    /// The button that Escape presses.
    bool Cancel() const { return cancel_; }
    void SetCancel(bool on) { cancel_ = on; }

    /// Presses the button without the mouse, as Enter and Escape do: the focus stays where it is. Nothing
    /// happens while the button is hidden or disabled.
    void Press();

    bool TakesFocus() const override { return true; }
    bool TypeKey(char32_t character) override;
    bool UserClick() override;

  private:
    bool default_ = false;
    bool cancel_ = false;
};

} // namespace forms
