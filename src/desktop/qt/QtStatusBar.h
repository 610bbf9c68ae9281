#pragma once

#include <vector>

#include "desktop/qt/QtControl.h"
#include "forms/StatusBar.h"

class QLabel;
class QStatusBar;

namespace desktop::qt {

class QtStatusBar final : public QtControl {
  public:
    QtStatusBar(forms::StatusBar& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    /// At the bottom, over the whole width.
    void Place() override;

  private:
    forms::StatusBar& model_;
    QStatusBar* bar_;
    std::vector<QLabel*> panels_;
};

} // namespace desktop::qt
