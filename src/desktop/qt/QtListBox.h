#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/ChoiceControl.h"

class QListWidget;

namespace desktop::qt {

class QtListBox final : public QtControl {
  public:
    QtListBox(forms::ListBox& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void Pick(int row);

    forms::ListBox& model_;
    QListWidget* list_;
    bool picked_ = false; // the press in progress has picked an entry already
};

} // namespace desktop::qt
