#pragma once

#include <functional>

#include "forms/Control.h"

namespace forms {

/// A choice that is on or off.
class CheckBox : public Control {
  public:
    CheckBox(Form& form, std::string name, int index = NoIndex, Control* container = nullptr)
        : Control(form, ControlKind::CheckBox, std::move(name), index, container) {}

    std::function<void()> OnClick;

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption);

    bool Value() const { return value_; }
    void SetValue(bool value);

    bool TakesFocus() const override { return true; }
    bool TypeKey(char32_t character) override;
    bool UserClick() override;

  private:
    std::string caption_;
    bool value_ = false;
};

} // namespace forms
