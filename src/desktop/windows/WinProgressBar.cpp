#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/ProgressBar.h"

namespace desktop::windows {

namespace {

class WinProgressBar final : public WinControl {
  public:
    WinProgressBar(forms::ProgressBar& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    bool IsNamed() const override { return true; }

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ProgressBar& model_;
};

WinProgressBar::WinProgressBar(forms::ProgressBar& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, PROGRESS_CLASSW), model_(control) {
    Send(PBM_SETRANGE32, static_cast<WPARAM>(control.Min()), control.Max());
}

void WinProgressBar::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Value) {
        Send(PBM_SETPOS, static_cast<WPARAM>(model_.Value()));
    }
}

} // namespace

std::unique_ptr<WinControl> MakeProgressBar(forms::ProgressBar& control, WinForm& form,
                                            const WindowPlace& place) {
    return std::make_unique<WinProgressBar>(control, form, place);
}

} // namespace desktop::windows
