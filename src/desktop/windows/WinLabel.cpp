#include <algorithm>

#include "desktop/windows/Fonts.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/AccessKeys.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"

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
    /// The dot at which the text of a label of this form begins.
    LONG StartOf(const forms::Label& label) const;
    LONG CaptionOf(const forms::OptionButton& option) const;
    LONG WidthOf(const forms::Label& label) const;
    LONG EndOf(const forms::Label& label) const;

    forms::Label& model_;
};

WinLabel::WinLabel(forms::Label& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_STATICW, SS_LEFT), model_(control) {}

// The button tells how wide it would like to be: for its mark, what stands behind that, and the caption.
LONG WinLabel::CaptionOf(const forms::OptionButton& option) const {
    SIZE wanted{};
    if (::SendMessageW(Form().WindowOf(option), BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&wanted)) ==
        FALSE) {
        return Form().Scaling().ToDots(model_.Left());
    }
    const std::wstring caption = ToWide(forms::WithoutAccessKey(option.Caption()));
    return Form().Scaling().ToDots(option.Left()) + wanted.cx -
           TextWidth(Form().FontFor(option.Font()), caption);
}

LONG WinLabel::WidthOf(const forms::Label& label) const {
    return TextWidth(Form().FontFor(label.Font()), ToWide(label.ShownCaption()));
}

// With the blank behind it.
LONG WinLabel::EndOf(const forms::Label& label) const {
    const LONG blank = label.ShownCaption().ends_with(' ') ? 0 : TextWidth(FontOf(), L" ");
    return StartOf(label) + WidthOf(label) + blank;
}

LONG WinLabel::StartOf(const forms::Label& label) const {
    if (label.Below() != nullptr) {
        return CaptionOf(*label.Below());
    }
    return label.Behind() == nullptr ? Form().Scaling().ToDots(label.Left()) : EndOf(*label.Behind());
}

// The first line keeps its middle where the design put it, beside the middle of its box and of other labels,
// also where the real font is lower than the line that the design gave it.
void WinLabel::Place() {
    RECT area = Form().Scaling().ToDots(model_.Left(), model_.Top(), model_.Width(), model_.Height());
    const int room = Form().Scaling().ToDots(model_.FirstLineHeight()) - LineHeight(FontOf());
    area.top += std::max(0, room / 2);
    const LONG start = StartOf(model_);
    if (model_.Behind() != nullptr) {
        area.right += start - area.left;
    }
    area.left = start;
    if (model_.IsContinued()) { // what stands behind must not be covered
        area.right = area.left + WidthOf(model_);
    }
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
