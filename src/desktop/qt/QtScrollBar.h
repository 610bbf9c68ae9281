#pragma once

#include "forms/ScrollBar.h"
#include "desktop/qt/QtControl.h"

class QScrollBar;

namespace platform::qt {

class QtScrollBar final : public QtControl {
  public:
    QtScrollBar(forms::ScrollBar& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ScrollBar& model_;
    QScrollBar* bar_;
};

} // namespace platform::qt
