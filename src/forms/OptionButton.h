#pragma once

#include <functional>

#include "forms/CaptionedControl.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// One of several choices that exclude each other: those in the same container.
class OptionButton : public CaptionedControl {
  public:
    using CaptionedControl::CaptionedControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    std::function<void()> OnClick;

    bool Value() const { return value_; }
    /// Turning it on turns its neighbours off and acts as a click.
    void SetValue(bool value);

    /// The next option of the same container that the user can choose, in the tab order and around its end;
    /// nullptr if there is no other.
    OptionButton* Neighbour(bool backward) const;

    bool TakesFocus() const override { return true; }
    bool TypeKey(char32_t character) override;
    /// The arrows go to the neighbours, and choose them.
    bool UserKey(int virtualKey, bool shift) override;
    bool UserClick() override;

  private:
    void Store(bool value);

    bool value_ = false;
};

} // namespace forms
