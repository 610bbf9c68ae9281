#include <algorithm>
#include <vector>

#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/StatusBar.h"

namespace desktop::windows {

namespace {

class WinStatusBar final : public WinControl {
  public:
    WinStatusBar(forms::StatusBar& control, WinForm& form, const WindowPlace& place);

    bool FollowsWindow() const override { return true; }

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    /// At the bottom, over the whole width.
    void Place() override;

  private:
    forms::StatusBar& model_;
};

WinStatusBar::WinStatusBar(forms::StatusBar& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, STATUSCLASSNAMEW, CCS_NOPARENTALIGN | CCS_NORESIZE), model_(control) {}

void WinStatusBar::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Items) {
        return;
    }
    std::vector<INT> rightEdges;
    double right = 0;
    for (int number = 1; number < model_.PanelCount(); ++number) {
        right += model_.Panel(number).Width;
        rightEdges.push_back(Form().Scaling().ToDots(right));
    }
    rightEdges.push_back(-1); // the last one takes what is left
    Send(SB_SETPARTS, rightEdges.size(), reinterpret_cast<LPARAM>(rightEdges.data()));
    for (int number = 1; number <= model_.PanelCount(); ++number) {
        const std::wstring text = ToWide(model_.Panel(number).Text);
        Send(SB_SETTEXTW, static_cast<WPARAM>(number - 1), reinterpret_cast<LPARAM>(text.c_str()));
    }
}

void WinStatusBar::Place() {
    const SIZE area = Form().AreaSize();
    const Scale& scale = Form().Scaling();
    const LONG end = model_.FormEnd() ? scale.ToDots(*model_.FormEnd()) : area.cy;
    MoveTo({0, std::min(end, area.cy - scale.ToDots(model_.LeastHeight())), area.cx, area.cy});
}

} // namespace

std::unique_ptr<WinControl> MakeStatusBar(forms::StatusBar& control, WinForm& form,
                                          const WindowPlace& place) {
    return std::make_unique<WinStatusBar>(control, form, place);
}

} // namespace desktop::windows
