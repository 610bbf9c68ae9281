#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/CommandButton.h"

class QPushButton;

namespace desktop::qt {

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

} // namespace desktop::qt
