#include "desktop/qt/QtUpDown.h"

#include <QEvent>
#include <QToolButton>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtText.h"
#include "forms/Form.h"

namespace desktop::qt {

QtUpDown::QtUpDown(forms::UpDown& control, QtForm& form, QWidget* parent)
    : QtControl(control, form, new QWidget(parent)), model_(control), up_(MakeArrow(1)),
      down_(MakeArrow(-1)) {}

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

} // namespace desktop::qt
