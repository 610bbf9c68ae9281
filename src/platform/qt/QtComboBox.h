#pragma once

#include "platform/forms/ChoiceControl.h"
#include "platform/qt/QtControl.h"

class QComboBox;

namespace platform::qt {

class QtComboBox final : public QtControl {
  public:
    QtComboBox(forms::ComboBox& control, QtForm& form, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void WidenList();

    forms::ComboBox& model_;
    QComboBox* combo_;
};

} // namespace platform::qt
