#pragma once

#include <QTimer>

#include "forms/Timer.h"
#include "desktop/qt/QtControl.h"

namespace platform::qt {

class QtTimer final : public QtControl {
  public:
    QtTimer(forms::Timer& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::Timer& model_;
    QTimer timer_;
};

} // namespace platform::qt
