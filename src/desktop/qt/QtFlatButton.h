#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/cmdButtonXP.h"

namespace desktop::qt {

class PictureWidget;

class QtFlatButton final : public QtControl {
  public:
    QtFlatButton(forms::cmdButtonXP& control, QtForm& form, QWidget* parent);

    void Mirror(forms::Aspect aspect) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool Filter(QObject* watched, QEvent* event) override;

  private:
    void Released(const QMouseEvent& event);

    forms::cmdButtonXP& model_;
    PictureWidget* picture_;
    bool leftDown_ = false; // the left button of the mouse went down here
};

} // namespace desktop::qt
