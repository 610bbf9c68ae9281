#pragma once

#include "forms/CommandButton.h"
#include "desktop/qt/QtControl.h"

class QPushButton;

namespace platform::qt {

class QtCommandButton final : public QtControl {
  public:
    QtCommandButton(forms::CommandButton& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::CommandButton& model_;
    QPushButton* button_;
};

} // namespace platform::qt
