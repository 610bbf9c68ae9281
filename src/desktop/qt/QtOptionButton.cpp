#include "desktop/qt/QtOptionButton.h"

#include <QKeyEvent>
#include <QRadioButton>

#include "desktop/qt/QtText.h"
#include "forms/Form.h"

namespace desktop::qt {

QtOptionButton::QtOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QRadioButton(parent)), model_(control),
      button_(static_cast<QRadioButton*>(Widget())) {
    // Which options exclude each other is the form's business.
    button_->setAutoExclusive(false);
    connect(button_, &QRadioButton::clicked, this, [this] { Click(); });
}

void QtOptionButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        button_->setText(ToQString(model_.Caption()));
    } else if (aspect == forms::Aspect::Value) {
        button_->setChecked(model_.Value());
    }
}

bool QtOptionButton::KeyPressed(const QKeyEvent& event, int virtualKey) {
    QtControl::KeyPressed(event, virtualKey);
    const bool backward = event.key() == Qt::Key_Up || event.key() == Qt::Key_Left;
    const bool forward = event.key() == Qt::Key_Down || event.key() == Qt::Key_Right;
    if (backward || forward) {
        if (forms::OptionButton* neighbour = model_.Neighbour(backward)) {
            neighbour->UserClick();
        }
    }
    return event.key() != Qt::Key_Space;
}

} // namespace desktop::qt
