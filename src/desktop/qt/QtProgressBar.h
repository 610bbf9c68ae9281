#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/ProgressBar.h"

class QProgressBar;

namespace desktop::qt {

class QtProgressBar final : public QtControl {
  public:
    QtProgressBar(forms::ProgressBar& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ProgressBar& model_;
    QProgressBar* bar_;
};

} // namespace desktop::qt
