#pragma once

#include "forms/LineControl.h"
#include "desktop/qt/QtControl.h"

namespace platform::qt {

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

} // namespace platform::qt
