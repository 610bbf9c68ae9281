#include <algorithm>

#include "desktop/windows/Fonts.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/AccessKeys.h"
#include "forms/Label.h"

namespace desktop::windows {

namespace {

class WinLabel final : public WinControl {
  public:
    WinLabel(forms::Label& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }

  protected:
    void Place() override;
    void MirrorContent(forms::Aspect aspect) override;

  private:
    void SetStyle(DWORD style, bool wanted) const;

    forms::Label& model_;
};

WinLabel::WinLabel(forms::Label& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_STATICW, SS_LEFT), model_(control) {}

// The first line keeps its middle where the design put it, beside the middle of its box and of other labels,
// also where the real font is lower than the line that the design gave it.
void WinLabel::Place() {
    RECT area = Form().Scaling().ToDots(model_.Left(), model_.Top(), model_.Width(), model_.Height());
    const int room = Form().Scaling().ToDots(model_.FirstLineHeight()) - LineHeight(FontOf());
    area.top += std::max(0, room / 2);
    MoveTo(area);
    // Where there is room for one line alone, a text that is too long ends in dots; wrapped it would lose its
    // last words without a sign.
    SetStyle(SS_ENDELLIPSIS, model_.HasOneLine());
}

void WinLabel::SetStyle(DWORD style, bool wanted) const {
    if (HasStyle(style) != wanted) {
        const auto before = static_cast<DWORD>(::GetWindowLongW(Window(), GWL_STYLE));
        ::SetWindowLongW(Window(), GWL_STYLE, static_cast<LONG>(before ^ style));
    }
}

void WinLabel::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Caption) {
        return;
    }
    // "&" is a mark only where the label has a control to go to.
    SetStyle(SS_NOPREFIX, forms::AccessKeyTarget(model_) == nullptr);
    SetCaption(model_.ShownCaption());
    ::InvalidateRect(Window(), nullptr, TRUE);
}

} // namespace

std::unique_ptr<WinControl> MakeLabel(forms::Label& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinLabel>(control, form, place);
}

} // namespace desktop::windows
