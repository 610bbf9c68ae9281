#pragma once

#include "desktop/qt/QtControl.h"
#include "forms/PictureBox.h"

namespace desktop::qt {

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

} // namespace desktop::qt
