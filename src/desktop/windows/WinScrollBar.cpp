#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/ScrollBar.h"

namespace desktop::windows {

namespace {

class WinScrollBar final : public WinControl {
  public:
    WinScrollBar(forms::ScrollBar& control, WinForm& form, const WindowPlace& place);

    bool IsNamed() const override { return true; }
    void Scrolled(int request, int position) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::ScrollBar& model_;
};

WinScrollBar::WinScrollBar(forms::ScrollBar& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_SCROLLBARW,
                 control.Orientation() == forms::ScrollBar::Direction::Horizontal ? SBS_HORZ : SBS_VERT),
      model_(control) {}

// The thumb is as long as a page, and the range of the bar ends where the end of the thumb does.
void WinScrollBar::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Value) {
        return;
    }
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = model_.Min();
    info.nMax = model_.Max() + model_.LargeChange() - 1;
    info.nPage = static_cast<UINT>(model_.LargeChange());
    info.nPos = model_.Value();
    ::SetScrollInfo(Window(), SB_CTL, &info, TRUE);
}

void WinScrollBar::Scrolled(int request, int position) {
    int value = model_.Value();
    switch (request) {
    case SB_LINEUP:
        value -= model_.SmallChange();
        break;
    case SB_LINEDOWN:
        value += model_.SmallChange();
        break;
    case SB_PAGEUP:
        value -= model_.LargeChange();
        break;
    case SB_PAGEDOWN:
        value += model_.LargeChange();
        break;
    case SB_TOP:
        value = model_.Min();
        break;
    case SB_BOTTOM:
        value = model_.Max();
        break;
    case SB_THUMBPOSITION:
        value = position;
        break;
    default: // a thumb that is being dragged reports nothing
        return;
    }
    model_.UserScroll(value);
    Mirror(forms::Aspect::Value);
}

} // namespace

std::unique_ptr<WinControl> MakeScrollBar(forms::ScrollBar& control, WinForm& form,
                                          const WindowPlace& place) {
    return std::make_unique<WinScrollBar>(control, form, place);
}

} // namespace desktop::windows
