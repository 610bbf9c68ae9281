#pragma once

#include "forms/CaptionedControl.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A menu of the design, or a line of one, which other code can ask for by its name. "&" in the caption marks
/// the access key; "-" is the rule between two groups of lines. The user never sees it: what a form shows is
/// its MenuBar.
class MenuItem : public CaptionedControl {
  public:
    using CaptionedControl::CaptionedControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    bool HasWindow() const override { return false; }
};

} // namespace forms
