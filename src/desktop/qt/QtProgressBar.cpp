#include "desktop/qt/QtProgressBar.h"

#include <QProgressBar>

namespace desktop::qt {

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

} // namespace desktop::qt
