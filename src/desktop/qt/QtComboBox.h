#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/ChoiceControl.h"

class QComboBox;

namespace desktop::qt {

class QtComboBox final : public QtControl {
  public:
    QtComboBox(forms::ComboBox& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void WidenList();

    forms::ComboBox& model_;
    QComboBox* combo_;
};

} // namespace desktop::qt
