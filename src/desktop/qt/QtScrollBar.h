#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/ScrollBar.h"

class QScrollBar;

namespace desktop::qt {

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

} // namespace desktop::qt
