#pragma once

#include <vector>

#include "forms/StatusBar.h"
#include "desktop/qt/QtControl.h"

class QLabel;
class QStatusBar;

namespace platform::qt {

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

} // namespace platform::qt
