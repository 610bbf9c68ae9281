#include "desktop/qt/QtTimer.h"

#include "desktop/qt/Guarded.h"

namespace desktop::qt {

QtTimer::QtTimer(forms::Timer& control, QtForm& form, QWidget* /*parent*/)
    : QtControl(control, form, nullptr), model_(control) {
    timer_.setInterval(control.Interval());
    connect(&timer_, &QTimer::timeout, this, [this] { Guarded([this] { model_.Tick(); }); });
}

void QtTimer::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Enabled || model_.Enabled() == timer_.isActive()) {
        return;
    }
    if (model_.Enabled()) {
        timer_.start();
    } else {
        timer_.stop();
    }
}

} // namespace desktop::qt
