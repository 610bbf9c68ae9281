#pragma once

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// How far a task has come, from Min to Max.
class ProgressBar : public Control {
  public:
    using Control::Control;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    bool IsNamedByLabel() const override { return true; }

    int Min() const { return 0; }
    int Max() const { return 100; }

    int Value() const { return value_; }
    /// Tells the peer each time, also of the value that it has. ErrorInvalidPropertyValue outside Min to Max.
    void SetValue(int value);

  private:
    int value_ = 0;
};

} // namespace forms
