#pragma once

#include <functional>

#include "forms/CaptionedControl.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A choice that is on or off.
class CheckBox : public CaptionedControl {
  public:
    using CaptionedControl::CaptionedControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    std::function<void()> OnClick;

    bool Value() const { return value_; }
    void SetValue(bool value);

    bool TakesFocus() const override { return true; }
    bool TypeKey(char32_t character) override;
    bool UserClick() override;

  private:
    bool value_ = false;
};

} // namespace forms
