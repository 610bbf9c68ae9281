#include "desktop/windows/WinProgressBar.h"

namespace desktop::windows {

WinProgressBar::WinProgressBar(forms::ProgressBar& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, PROGRESS_CLASSW), model_(control) {
    Send(PBM_SETRANGE32, static_cast<WPARAM>(control.Min()), control.Max());
}

void WinProgressBar::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Value) {
        Send(PBM_SETPOS, static_cast<WPARAM>(model_.Value()));
    }
}

} // namespace desktop::windows
