// Where a form's window stands, how large it is, and its colours.
#include <algorithm>

#include <QApplication>
#include <QScopedValueRollback>
#include <QScreen>

#include "desktop/qt/QtColours.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/QtForm.h"
#include "desktop/qt/Scale.h"
#include "forms/DesignScreen.h"
#include "forms/Form.h"

namespace desktop::qt {

namespace {

using forms::TwipsPerDesignDot;

// Bounds are exchanged in dots of the design, and count the title bar.
std::int32_t DesignDots(int dots) {
    return static_cast<std::int32_t>(ToTwips(dots) / TwipsPerDesignDot);
}

QSize InnerSize(const machine::MINMAXINFO::POINT& outer) {
    const QSize size(ToDots(outer.x * TwipsPerDesignDot - forms::ResizeFrameWidth),
                     ToDots(outer.y * TwipsPerDesignDot - forms::TitleBarHeight));
    return size.expandedTo(QSize(0, 0)).boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

} // namespace

forms::WindowSize QtForm::Bounded(const forms::WindowSize& wanted) {
    return desktop_.Windows().BoundedSize(procedure_.Handle(), wanted);
}

double QtForm::FrameWidth() const {
    return form_.Resizable() ? forms::ResizeFrameWidth : 0;
}

QSize QtForm::WantedSize() const {
    return {ToDots(form_.Width() - FrameWidth()), ToDots(form_.Height() - forms::TitleBarHeight)};
}

void QtForm::ShowSize() {
    const QScopedValueRollback rollback(showingSize_, true);
    const QSize size = WantedSize();
    if (size.isEmpty()) {
        return;
    }
    if (form_.Resizable()) {
        window_->resize(size);
    } else {
        window_->setFixedSize(size);
    }
}

void QtForm::ShowPlace() {
    if (!form_.Placed() || (form_.Left() == shownLeft_ && form_.Top() == shownTop_)) {
        return;
    }
    shownLeft_ = form_.Left();
    shownTop_ = form_.Top();
    window_->move(ToDots(shownLeft_), ToDots(shownTop_));
}

void QtForm::MoveToMiddle() {
    const QWidget* below = desktop_.TopWindow();
    const QScreen* screen = below == nullptr ? QApplication::primaryScreen() : below->screen();
    const QPoint middle =
        below == nullptr ? screen->availableGeometry().center() : below->frameGeometry().center();
    QRect frame = window_->frameGeometry();
    frame.moveCenter(middle);
    const QRect room = screen->availableGeometry();
    frame.moveLeft(std::max(room.left(), std::min(frame.left(), room.right() - frame.width())));
    frame.moveTop(std::max(room.top(), std::min(frame.top(), room.bottom() - frame.height())));
    window_->move(frame.topLeft());
}

// A form that the user may resize is asked how small and how large it may become.
void QtForm::ShowBounds() {
    if (!form_.Resizable()) {
        return;
    }
    const QSize screen = window_->screen()->size();
    machine::MINMAXINFO bounds{};
    bounds.ptMaxTrackSize = {DesignDots(screen.width()), DesignDots(screen.height())};
    bounds.ptMaxSize = bounds.ptMaxTrackSize;
    bounds = desktop_.Windows().AskBounds(procedure_.Handle(), bounds);
    window_->setMinimumSize(InnerSize(bounds.ptMinTrackSize));
    window_->setMaximumSize(InnerSize(bounds.ptMaxTrackSize).expandedTo(window_->minimumSize()));
}

void QtForm::PlaceBars() {
    if (menuBar_ != nullptr) {
        menuBar_->Mirror(forms::Aspect::Geometry);
        const int top = menuBar_->StripHeight();
        area_->setGeometry(0, top, window_->width(), window_->height() - top);
    }
    for (const auto& control : controls_) {
        if (control->FollowsWindow()) {
            control->Mirror(forms::Aspect::Geometry);
        }
    }
}

void QtForm::Resized() {
    PlaceBars();
    if (form_.Visible() && !showingSize_ && window_->size() != WantedSize()) {
        form_.UserResize(ToTwips(window_->width()) + FrameWidth(),
                         ToTwips(window_->height()) + forms::TitleBarHeight);
    }
}

// The window's own colour needs no filling.
void QtForm::Colour() {
    if (form_.BackColor() != forms::colour::ButtonFace) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Window, ToQColor(form_.BackColor(), palette));
        area_->setPalette(palette);
        area_->setAutoFillBackground(true);
    }
}

void QtForm::ThemeChanged() {
    Colour();
    for (const auto& control : controls_) {
        control->Mirror(forms::Aspect::Colours);
    }
}

} // namespace desktop::qt
