#include "desktop/qt/Accessibility.h"
#include "desktop/qt/PictureWidget.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/PictureBox.h"

namespace desktop::qt {

namespace {

class QtPictureBox final : public QtControl {
  public:
    QtPictureBox(forms::PictureBox& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::PictureBox& model_;
    PictureWidget* picture_;
};

QtPictureBox::QtPictureBox(forms::PictureBox& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new PictureWidget(parent)), model_(control),
      picture_(static_cast<PictureWidget*>(Widget())) {
    SpeakAs(*Widget(), QAccessible::Graphic);
}

void QtPictureBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        picture_->SetPicture(ToQString(model_.Picture()));
        picture_->SetPage(model_.Page());
    }
}

} // namespace

std::unique_ptr<QtControl> MakePictureBox(forms::PictureBox& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtPictureBox>(control, form, parent);
}

} // namespace desktop::qt
