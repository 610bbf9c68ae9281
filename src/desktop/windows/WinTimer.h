#pragma once

#include "forms/Timer.h"
#include "desktop/windows/WinControl.h"

namespace platform::windows {

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

} // namespace platform::windows
