#pragma once

#include <QTimer>

#include "desktop/qt/QtControl.h"
#include "forms/Timer.h"

namespace desktop::qt {

class QtTimer final : public QtControl {
  public:
    QtTimer(forms::Timer& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::Timer& model_;
    QTimer timer_;
};

} // namespace desktop::qt
