#include "platform/qt/QtOptionButton.h"

#include <QKeyEvent>
#include <QRadioButton>

#include <algorithm>
#include <vector>

#include "platform/forms/Form.h"
#include "platform/qt/QtText.h"

namespace platform::qt {

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

forms::OptionButton* QtOptionButton::Neighbour(bool backward) const {
    std::vector<forms::Control*> group;
    for (forms::Control* control : model_.Owner().Controls()) {
        if (control->Kind() == forms::ControlKind::OptionButton &&
            control->Container() == model_.Container() && control->CanFocus()) {
            group.push_back(control);
        }
    }
    std::stable_sort(group.begin(), group.end(), [](const forms::Control* a, const forms::Control* b) {
        return a->TabIndex() < b->TabIndex();
    });
    if (backward) {
        std::reverse(group.begin(), group.end());
    }
    const auto self = std::find(group.begin(), group.end(), static_cast<forms::Control*>(&model_));
    if (group.size() < 2 || self == group.end()) {
        return nullptr;
    }
    const auto next = std::next(self);
    return static_cast<forms::OptionButton*>(next == group.end() ? group.front() : *next);
}

bool QtOptionButton::KeyPressed(const QKeyEvent& event, int virtualKey) {
    QtControl::KeyPressed(event, virtualKey);
    const bool backward = event.key() == Qt::Key_Up || event.key() == Qt::Key_Left;
    const bool forward = event.key() == Qt::Key_Down || event.key() == Qt::Key_Right;
    if (backward || forward) {
        if (forms::OptionButton* neighbour = Neighbour(backward)) {
            neighbour->UserClick();
        }
    }
    return event.key() != Qt::Key_Space;
}

} // namespace platform::qt
