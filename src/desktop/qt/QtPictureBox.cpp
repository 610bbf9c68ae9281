#include "desktop/qt/QtPictureBox.h"

#include "desktop/qt/PictureWidget.h"
#include "desktop/qt/QtText.h"

namespace desktop::qt {

QtPictureBox::QtPictureBox(forms::PictureBox& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new PictureWidget(parent)), model_(control),
      picture_(static_cast<PictureWidget*>(Widget())) {}

void QtPictureBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        picture_->SetPicture(ToQString(model_.Picture()));
        picture_->SetPage(model_.Page());
    }
}

} // namespace desktop::qt
