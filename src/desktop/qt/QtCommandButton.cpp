#include "desktop/qt/QtCommandButton.h"

#include <QKeyEvent>
#include <QPushButton>

#include "desktop/qt/QtText.h"

namespace desktop::qt {

QtCommandButton::QtCommandButton(forms::CommandButton& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QPushButton(parent)), model_(control),
      button_(static_cast<QPushButton*>(Widget())) {
    button_->setAutoDefault(false);
    connect(button_, &QPushButton::clicked, this, [this] { Click(); });
}

void QtCommandButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        button_->setText(ToQString(model_.Caption()));
    } else if (aspect == forms::Aspect::Value) {
        button_->setDefault(model_.Default());
    }
}

bool QtCommandButton::KeyPressed(const QKeyEvent& event, int virtualKey) {
    QtControl::KeyPressed(event, virtualKey);
    // The arrows would move the toolkit's focus; the space bar presses and releases the button as the mouse
    // does.
    return event.key() != Qt::Key_Space;
}

} // namespace desktop::qt
