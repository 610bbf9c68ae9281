#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/UpDown.h"

class QToolButton;

namespace desktop::qt {

/// The two arrows; a press held down repeats. They take no focus themselves, the box beside them does.
class QtUpDown final : public QtControl {
  public:
    QtUpDown(forms::UpDown& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void Place() override;

  private:
    QToolButton* MakeArrow(int direction);

    forms::UpDown& model_;
    QToolButton* up_;
    QToolButton* down_;
};

} // namespace desktop::qt
