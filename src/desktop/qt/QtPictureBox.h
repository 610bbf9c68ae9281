#pragma once

#include "forms/PictureBox.h"
#include "desktop/qt/QtControl.h"

namespace platform::qt {

class PictureWidget;

class QtPictureBox final : public QtControl {
  public:
    QtPictureBox(forms::PictureBox& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::PictureBox& model_;
    PictureWidget* picture_;
};

} // namespace platform::qt
