#include <QCheckBox>
#include <QKeyEvent>

#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/CheckBox.h"

namespace desktop::qt {

namespace {

class QtCheckBox final : public QtControl {
  public:
    QtCheckBox(forms::CheckBox& control, QtForm& form, QWidget* parent);

    bool KeyPressed(const QKeyEvent& event, int virtualKey) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool DrawsItself() const override { return true; }

  private:
    forms::CheckBox& model_;
    QCheckBox* box_;
};

QtCheckBox::QtCheckBox(forms::CheckBox& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QCheckBox(parent)), model_(control),
      box_(static_cast<QCheckBox*>(Widget())) {
    connect(box_, &QCheckBox::clicked, this, [this] { Click(); });
}

void QtCheckBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        box_->setText(ToQString(model_.Caption()));
    } else if (aspect == forms::Aspect::Value) {
        box_->setChecked(model_.Value());
    }
}

bool QtCheckBox::KeyPressed(const QKeyEvent& event, int virtualKey) {
    QtControl::KeyPressed(event, virtualKey);
    return event.key() != Qt::Key_Space;
}

} // namespace

std::unique_ptr<QtControl> MakeCheckBox(forms::CheckBox& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtCheckBox>(control, form, parent);
}

} // namespace desktop::qt
