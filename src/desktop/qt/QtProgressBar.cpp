#include <QProgressBar>

#include "desktop/qt/QtControls.h"
#include "forms/ProgressBar.h"

namespace desktop::qt {

namespace {

class QtProgressBar final : public QtControl {
  public:
    QtProgressBar(forms::ProgressBar& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool DrawsItself() const override { return true; }

  private:
    forms::ProgressBar& model_;
    QProgressBar* bar_;
};

QtProgressBar::QtProgressBar(forms::ProgressBar& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QProgressBar(parent)), model_(control),
      bar_(static_cast<QProgressBar*>(Widget())) {
    bar_->setRange(control.Min(), control.Max());
    bar_->setTextVisible(false);
}

void QtProgressBar::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Value) {
        bar_->setValue(model_.Value());
    }
}

} // namespace

std::unique_ptr<QtControl> MakeProgressBar(forms::ProgressBar& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtProgressBar>(control, form, parent);
}

} // namespace desktop::qt
