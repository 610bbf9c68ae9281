#pragma once

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A straight rule, horizontal or vertical, in its fore colour; one dot wide.
class LineControl : public Control {
  public:
    using Control::Control;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    double X1() const { return Left(); }
    double Y1() const { return Top(); }
    double X2() const { return Left() + Width(); }
    double Y2() const { return Top() + Height(); }
    void SetX2(double x) { Move(Left(), Top(), x - Left(), Height()); }
    void SetY2(double y) { Move(Left(), Top(), Width(), y - Top()); }
    void SetEnds(double x1, double y1, double x2, double y2) { Move(x1, y1, x2 - x1, y2 - y1); }
};

} // namespace forms
