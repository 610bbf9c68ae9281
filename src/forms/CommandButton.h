#pragma once

#include <functional>

#include "forms/Control.h"

namespace forms {

/// A push button. "&" in the caption marks its access key.
class CommandButton : public Control {
  public:
    CommandButton(Form& form, std::string name, int index = NoIndex, Control* container = nullptr)
        : Control(form, ControlKind::CommandButton, std::move(name), index, container) {}

    std::function<void()> OnClick;

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption);

    /// The button that Enter presses while no other button has the focus.
    bool Default() const { return default_; }
    void SetDefault(bool on) {
        default_ = on;
        Changed(Aspect::Value);
    }
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
    std::string caption_;
    bool default_ = false;
    bool cancel_ = false;
};

} // namespace forms
