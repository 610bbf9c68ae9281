#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/CheckBox.h"

class QCheckBox;

namespace desktop::qt {

class QtCheckBox final : public QtControl {
  public:
    QtCheckBox(forms::CheckBox& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::CheckBox& model_;
    QCheckBox* box_;
};

} // namespace desktop::qt
