#pragma once

#include "forms/Control.h"
#include "forms/ControlVisitor.h"
#include "forms/TextBox.h"

namespace forms {

/// A pair of arrows that steps the number in a text box by 1 between two limits.
class UpDown : public Control {
  public:
    UpDown(Form& form, std::string name, TextBox& buddy, int min, int max, Control* container = nullptr)
        : Control(form, std::move(name), NoIndex, container), buddy_(buddy), min_(min), max_(max) {}

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    TextBox& Buddy() const { return buddy_; }
    int Min() const { return min_; }
    int Max() const { return max_; }

    bool IsNamedByLabel() const override { return true; }
    /// It belongs to the box.
    bool OwnsLabel() const override { return false; }

    /// The user presses an arrow. A text that is no number counts as 0; one beyond a limit goes to the limit.
    void UserStep(int direction);

    /// The arrows beside a box; nullptr if it has none.
    static UpDown* Of(const TextBox& box);

  private:
    TextBox& buddy_;
    int min_;
    int max_;
};

} // namespace forms
