#include "platform/qt/QtFlatButton.h"

#include <QMouseEvent>

#include "platform/qt/PictureWidget.h"
#include "platform/qt/QtText.h"

namespace platform::qt {

namespace {

bool IsLeft(const QEvent* event) {
    return static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
}

} // namespace

QtFlatButton::QtFlatButton(cmdButtonXP& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new PictureWidget(parent)), model_(control),
      picture_(static_cast<PictureWidget*>(Widget())) {
    picture_->setMouseTracking(true);
}

void QtFlatButton::Mirror(forms::Aspect aspect) {
    QtControl::Mirror(aspect);
    if (aspect == forms::Aspect::Enabled) {
        picture_->setEnabled(model_.Enabled() && model_.WindowEnabled());
    }
}

void QtFlatButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        picture_->SetPicture(ToQString(model_.pictNormal()));
    }
}

bool QtFlatButton::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
        model_.UserMouseMove();
        return true;
    case QEvent::MouseButtonPress:
        if (IsLeft(event)) {
            model_.UserMouseDown();
        }
        return true;
    case QEvent::MouseButtonDblClick:
        if (IsLeft(event)) {
            model_.UserDblClick();
        }
        return true;
    case QEvent::MouseButtonRelease: {
        if (!IsLeft(event)) {
            return true;
        }
        const bool pressed = model_.blnMouseDown();
        model_.UserMouseUp();
        const QPoint at = static_cast<QMouseEvent*>(event)->position().toPoint();
        if (pressed && picture_->rect().contains(at)) {
            model_.UserClick();
        }
        return true;
    }
    default:
        return QtControl::eventFilter(watched, event);
    }
}

} // namespace platform::qt
