#pragma once

#include <functional>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A scroll bar. It reports a change of its value and nothing else: not a thumb that is still being dragged,
/// and not a value that it already has. It takes no focus, so the arrow keys stay with the form.
class ScrollBar : public Control {
  public:
    enum class Direction { Horizontal, Vertical };

    ScrollBar(Form& form, std::string name, Direction direction, int min, int max,
              Control* container = nullptr)
        : Control(form, std::move(name), NoIndex, container), direction_(direction), min_(min), max_(max),
          value_(min) {}

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    std::function<void()> OnChange;

    Direction Orientation() const { return direction_; }
    int Min() const { return min_; }
    int Max() const { return max_; }

    /// How far a click on an arrow, or beside the thumb, goes.
    int SmallChange() const { return smallChange_; }
    void SetSmallChange(int step) { smallChange_ = step; }
    int LargeChange() const { return largeChange_; }
    void SetLargeChange(int step) { largeChange_ = step; }

    int Value() const { return value_; }
    /// ErrorInvalidPropertyValue outside Min to Max.
    void SetValue(int value);

    /// The user lets the thumb go here, or has clicked an arrow. A value beyond the ends goes to the end.
    /// False if a user could not (hidden, disabled).
    bool UserScroll(int value);

  private:
    Direction direction_;
    int min_;
    int max_;
    int value_;
    int smallChange_ = 1;
    int largeChange_ = 1;
};

} // namespace forms
