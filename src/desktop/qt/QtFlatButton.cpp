#include <utility>

#include <QMouseEvent>

#include "desktop/qt/Accessibility.h"
#include "desktop/qt/PictureWidget.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/cmdButtonXP.h"

namespace desktop::qt {

namespace {

bool IsLeft(const QEvent* event) {
    return static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
}

class QtFlatButton final : public QtControl {
  public:
    QtFlatButton(forms::cmdButtonXP& control, QtForm& form, QWidget* parent);

    void Mirror(forms::Aspect aspect) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    bool Filter(QObject* watched, QEvent* event) override;

  private:
    void Released(const QMouseEvent& event);

    forms::cmdButtonXP& model_;
    PictureWidget* picture_;
    bool leftDown_ = false; // the left button of the mouse went down here
};

QtFlatButton::QtFlatButton(forms::cmdButtonXP& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new PictureWidget(parent)), model_(control),
      picture_(static_cast<PictureWidget*>(Widget())) {
    SpeakAs(*Widget(), QAccessible::Button);
    picture_->setMouseTracking(true);
}

void QtFlatButton::Mirror(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Enabled) {
        QtControl::Mirror(aspect);
        return;
    }
    // A button that is off keeps its window, and with it its tooltip; a screen reader is told all the same.
    picture_->setEnabled(model_.WindowEnabled());
    SpeakEnabled(*picture_, model_.Enabled());
}

void QtFlatButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        picture_->SetPicture(ToQString(model_.pictNormal()));
    }
}

// Any button of the mouse holds this one down; the left one clicks it, where it goes up on it as well.
void QtFlatButton::Released(const QMouseEvent& event) {
    model_.UserMouseUp();
    if (IsLeft(&event) && std::exchange(leftDown_, false) &&
        picture_->rect().contains(event.position().toPoint())) {
        model_.UserClick();
    }
}

bool QtFlatButton::Filter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
        model_.UserMouseMove();
        return true;
    case QEvent::MouseButtonPress:
        model_.UserMouseDown();
        leftDown_ = leftDown_ || (IsLeft(event) && model_.blnMouseDown());
        return true;
    case QEvent::MouseButtonDblClick:
        if (IsLeft(event)) {
            model_.UserDblClick();
        }
        return true;
    case QEvent::MouseButtonRelease:
        Released(*static_cast<QMouseEvent*>(event));
        return true;
    default:
        return QtControl::Filter(watched, event);
    }
}

} // namespace

std::unique_ptr<QtControl> MakeFlatButton(forms::cmdButtonXP& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtFlatButton>(control, form, parent);
}

} // namespace desktop::qt
