#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/LineControl.h"

namespace desktop::qt {

/// A rule one dot wide.
class QtLine final : public QtControl {
  public:
    QtLine(forms::LineControl& control, QtForm& form, QWidget* parent);

  protected:
    void Place() override;
    void Colour() override;

  private:
    forms::LineControl& model_;
};

} // namespace desktop::qt
