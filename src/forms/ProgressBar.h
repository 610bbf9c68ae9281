#pragma once

#include "forms/Control.h"

namespace forms {

/// How far a task has come, from Min to Max.
class ProgressBar : public Control {
  public:
    ProgressBar(Form& form, std::string name, int index = NoIndex, Control* container = nullptr)
        : Control(form, ControlKind::ProgressBar, std::move(name), index, container) {}

    int Min() const { return 0; }
    int Max() const { return 100; }

    int Value() const { return value_; }
    /// Tells the peer each time, also of the value that it has. ErrorInvalidPropertyValue outside Min to Max.
    void SetValue(int value);

  private:
    int value_ = 0;
};

} // namespace forms
