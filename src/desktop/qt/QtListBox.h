#pragma once

#include "forms/ChoiceControl.h"
#include "desktop/qt/QtControl.h"

class QListWidget;

namespace platform::qt {

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

} // namespace platform::qt
