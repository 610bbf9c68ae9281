#include "desktop/qt/QtCheckBox.h"

#include <QCheckBox>
#include <QKeyEvent>

#include "desktop/qt/QtText.h"

namespace desktop::qt {

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

} // namespace desktop::qt
