#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/Timer.h"

namespace desktop::windows {

namespace {

class WinTimer final : public WinControl {
  public:
    WinTimer(forms::Timer& control, WinForm& form, const WindowPlace& place);
    ~WinTimer() override;

    void TimePassed() override { model_.Tick(); }

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::Timer& model_;
    UINT_PTR number_;
    bool runs_ = false;
};

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

} // namespace

std::unique_ptr<WinControl> MakeTimer(forms::Timer& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinTimer>(control, form, place);
}

} // namespace desktop::windows
