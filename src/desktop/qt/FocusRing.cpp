#include "desktop/qt/FocusRing.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QPainter>
#include <QRadioButton>
#include <QStyle>
#include <algorithm>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtColours.h"
#include "forms/Contrast.h"

namespace desktop::qt {

namespace {

constexpr int Thickness = 2;
constexpr double Rounding = 3;

/// What of a control is seen: an option is often wider than its text.
QRect SeenOf(const QWidget* control) {
    QSize size = control->size();
    if (qobject_cast<const QRadioButton*>(control) != nullptr ||
        qobject_cast<const QCheckBox*>(control) != nullptr) {
        size.setWidth(std::min(size.width(), control->sizeHint().width() + Thickness));
    }
    return {QPoint(0, 0), size};
}

} // namespace

FocusRing::FocusRing(QWidget* window) : QWidget(window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void FocusRing::Surround(QWidget* control) {
    if (control_ != nullptr) {
        control_->removeEventFilter(this);
    }
    control_ = QApplication::style()->name() == QLatin1String("fusion") ? control : nullptr;
    if (control_ != nullptr) {
        control_->installEventFilter(this);
    }
    Follow();
}

void FocusRing::Follow() {
    if (control_ == nullptr || !control_->isVisible()) {
        hide();
        return;
    }
    const QRect seen = SeenOf(control_);
    const QPoint start = control_->mapTo(parentWidget(), seen.topLeft());
    setGeometry(QRect(start, seen.size()).adjusted(-Thickness, -Thickness, Thickness, Thickness));
    raise();
    show();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
        GuardedQuietly([this] { Follow(); });
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
    GuardedQuietly([this] { Paint(); });
}

void FocusRing::Paint() {
    const QPalette theme = QApplication::palette();
    const forms::Colour colour =
        forms::Readable(FromQColor(theme.color(QPalette::Highlight)),
                        FromQColor(theme.color(QPalette::Window)), forms::ContrastOfPictures);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(colour, theme), Thickness));
    constexpr double inset = Thickness / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Rounding, Rounding);
}

} // namespace desktop::qt
