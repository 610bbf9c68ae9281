#pragma once

#include <functional>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// Calls its handler at an interval while it is enabled; the platform's message loop runs it.
class Timer : public Control {
  public:
    /// `interval` in milliseconds.
    Timer(Form& form, std::string name, int interval)
        : Control(form, std::move(name), NoIndex, nullptr), interval_(interval) {
        Control::SetEnabled(false);
    }

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    std::function<void()> OnTimer;

    int Interval() const { return interval_; }

    /// The interval has passed. Nothing happens while the timer is off, or its form is about to go.
    void Tick();

  private:
    int interval_;
};

} // namespace forms
