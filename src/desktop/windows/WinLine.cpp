#include <algorithm>
#include <cmath>

#include "desktop/windows/Colours.h"
#include "desktop/windows/PictureWindow.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/LineControl.h"

namespace desktop::windows {

namespace {

/// A rule one dot of the design wide.
class WinLine final : public WinControl {
  public:
    WinLine(forms::LineControl& control, WinForm& form, const WindowPlace& place);

  protected:
    void Place() override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    forms::LineControl& model_;
};

WinLine::WinLine(forms::LineControl& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, PlainWindowClass()), model_(control) {}

void WinLine::Place() {
    const Scale& scale = Form().Scaling();
    RECT area = scale.ToDots(std::min(model_.X1(), model_.X2()), std::min(model_.Y1(), model_.Y2()),
                             std::abs(model_.Width()), std::abs(model_.Height()));
    area.right = std::max<LONG>(area.right, area.left + scale.RuleWidth());
    area.bottom = std::max<LONG>(area.bottom, area.top + scale.RuleWidth());
    MoveTo(area);
}

LRESULT WinLine::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NCHITTEST: // the mouse is for what lies beneath
        return HTTRANSPARENT;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT:
        PaintPicture(Window(), {ToColourRef(model_.ForeColor()), {}, nullptr, {}});
        return 0;
    default:
        return WinControl::Received(message, wParam, lParam);
    }
}

} // namespace

std::unique_ptr<WinControl> MakeLine(forms::LineControl& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinLine>(control, form, place);
}

} // namespace desktop::windows
