#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/Timer.h"

namespace desktop::windows {

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

} // namespace desktop::windows
