#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/OptionButton.h"

class QRadioButton;

namespace desktop::qt {

class QtOptionButton final : public QtControl {
  public:
    QtOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::OptionButton& model_;
    QRadioButton* button_;
};

} // namespace desktop::qt
