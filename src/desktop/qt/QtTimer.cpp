#include <QTimer>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtControls.h"
#include "forms/Timer.h"

namespace desktop::qt {

namespace {

class QtTimer final : public QtControl {
  public:
    QtTimer(forms::Timer& control, QtForm& form, QWidget* parent);

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::Timer& model_;
    QTimer timer_;
};

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

} // namespace

std::unique_ptr<QtControl> MakeTimer(forms::Timer& control, QtForm& form, QWidget* parent) {
    return std::make_unique<QtTimer>(control, form, parent);
}

} // namespace desktop::qt
