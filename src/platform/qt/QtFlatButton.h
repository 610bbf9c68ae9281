#pragma once

#include "platform/cmdButtonXP.h"
#include "platform/qt/QtControl.h"

namespace platform::qt {

class PictureWidget;

class QtFlatButton final : public QtControl {
  public:
    QtFlatButton(cmdButtonXP& control, QtForm& form, QWidget* parent);

    void Mirror(forms::Aspect aspect) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    cmdButtonXP& model_;
    PictureWidget* picture_;
};

} // namespace platform::qt
