#pragma once

#include "forms/ProgressBar.h"
#include "desktop/qt/QtControl.h"

class QProgressBar;

namespace platform::qt {

class QtProgressBar final : public QtControl {
  public:
    QtProgressBar(forms::ProgressBar& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ProgressBar& model_;
    QProgressBar* bar_;
};

} // namespace platform::qt
