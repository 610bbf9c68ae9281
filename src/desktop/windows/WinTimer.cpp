#include "desktop/windows/WinTimer.h"

#include "desktop/windows/WinForm.h"

namespace desktop::windows {

WinTimer::WinTimer(forms::Timer& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, nullptr), model_(control), number_(static_cast<UINT_PTR>(place.Id)) {}

WinTimer::~WinTimer() {
    ::KillTimer(Form().Window(), number_);
}

// Windows makes an interval below 10 milliseconds 10.
void WinTimer::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Enabled || model_.Enabled() == runs_) {
        return;
    }
    runs_ = model_.Enabled();
    if (runs_) {
        ::SetTimer(Form().Window(), number_, static_cast<UINT>(model_.Interval()), nullptr);
    } else {
        ::KillTimer(Form().Window(), number_);
    }
}

} // namespace desktop::windows
