#include "platform/qt/QtLabel.h"

#include <QEvent>
#include <QLabel>

#include <algorithm>

#include "platform/forms/AccessibleNames.h"
#include "platform/qt/QtForm.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Scale.h"

namespace platform::qt {

QtLabel::QtLabel(forms::Label& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QLabel(parent)), model_(control), label_(static_cast<QLabel*>(Widget())) {
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

// The first line keeps its middle where the design put it, beside the middle of its box and of other labels,
// also where the real font is lower than the line that the design gave it.
void QtLabel::Place() {
    QtControl::Place();
    constexpr double line = 240;
    const double first = model_.Height() < 2 * line ? model_.Height() : line;
    const int room = ToDots(first) - label_->fontMetrics().height();
    label_->setContentsMargins(0, std::max(0, room / 2), 0, 0);
}

void QtLabel::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Caption) {
        return;
    }
    // The toolkit reads a "&" as a mark only where the label has a control to go to.
    const forms::Control* target = AccessKeyTarget(model_);
    label_->setBuddy(target == nullptr ? nullptr : Form().WidgetOf(*target));
    const bool marked = model_.UseMnemonic() && label_->buddy() == nullptr;
    label_->setText(ToQString(marked ? forms::WithoutAccessKey(model_.Caption()) : model_.Caption()));
}

bool QtLabel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        if (forms::Control* target = AccessKeyTarget(model_)) {
            target->SetFocus();
        }
        return true;
    }
    return QtControl::eventFilter(watched, event);
}

} // namespace platform::qt
