#include <QEvent>
#include <QToolButton>

#include "desktop/qt/Accessibility.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "desktop/qt/QtText.h"
#include "forms/Form.h"
#include "forms/UpDown.h"

namespace desktop::qt {

namespace {

/// The two arrows; a press held down repeats. They take no focus themselves, the box beside them does.
class QtUpDown final : public QtControl {
  public:
    QtUpDown(forms::UpDown& control, QtForm& form, QWidget* parent);

  protected:
    bool Filter(QObject* watched, QEvent* event) override;
    void Place() override;
    bool DrawsItself() const override { return true; }

  private:
    QToolButton* MakeArrow(int direction);

    forms::UpDown& model_;
    QToolButton* up_;
    QToolButton* down_;
};

QtUpDown::QtUpDown(forms::UpDown& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QWidget(parent)), model_(control), up_(MakeArrow(1)),
      down_(MakeArrow(-1)) {
    SpeakAs(*Widget(), QAccessible::Grouping);
}

QToolButton* QtUpDown::MakeArrow(int direction) {
    auto* arrow = new QToolButton(Widget());
    arrow->setArrowType(direction > 0 ? Qt::UpArrow : Qt::DownArrow);
    arrow->setObjectName(ToQString(model_.Name()) +
                         (direction > 0 ? QStringLiteral(".Up") : QStringLiteral(".Down")));
    arrow->setAccessibleName(direction > 0 ? QStringLiteral("Omhoog") : QStringLiteral("Omlaag"));
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setAutoRepeat(true);
    Watch(arrow);
    connect(arrow, &QToolButton::clicked, this,
            [this, direction] { Guarded([&] { model_.UserStep(direction); }); });
    return arrow;
}

// A press in the arrows brings the focus to the box, and is lost if it does not stay there.
bool QtUpDown::Filter(QObject* watched, QEvent* event) {
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press && watched != Widget()) {
        forms::TextBox& box = model_.Buddy();
        return box.CanFocus() && !box.Owner().MoveFocus(box);
    }
    return QtControl::Filter(watched, event);
}

void QtUpDown::Place() {
    QtControl::Place();
    const QSize size = Widget()->size();
    const int half = size.height() / 2;
    up_->setGeometry(0, 0, size.width(), half);
    down_->setGeometry(0, half, size.width(), size.height() - half);
}

} // namespace

std::unique_ptr<QtControl> MakeUpDown(forms::UpDown& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtUpDown>(control, form, parent);
}

} // namespace desktop::qt
