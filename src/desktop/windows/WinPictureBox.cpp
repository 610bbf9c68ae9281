#include "desktop/windows/Colours.h"
#include "desktop/windows/PictureWindow.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/PictureBox.h"

namespace desktop::windows {

namespace {

/// A picture, an area of colour, or what holds other controls, whose messages it hands on to the form.
class WinPictureBox final : public WinControl {
  public:
    WinPictureBox(forms::PictureBox& control, WinForm& form, const WindowPlace& place);

    bool IsNamed() const override { return true; }

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint() const;
    void Fill(HDC device) const;

    forms::PictureBox& model_;
};

WinPictureBox::WinPictureBox(forms::PictureBox& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, PlainWindowClass(), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT),
      model_(control) {}

void WinPictureBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Picture) {
        ::InvalidateRect(Window(), nullptr, FALSE);
    }
}

void WinPictureBox::Paint() const {
    PaintPicture(Window(), {ToColourRef(model_.ShownBackColor()), model_.Picture(), model_.Page(),
                            Form().Scaling().DotsPerInch()});
}

void WinPictureBox::Fill(HDC device) const {
    RECT area{};
    ::GetClientRect(Window(), &area);
    ::FillRect(device, &area, BrushFor(device, model_.ShownBackColor()));
}

LRESULT WinPictureBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (Form().Reflect(message, wParam, lParam, result)) {
        return result;
    }
    switch (message) {
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT: // a control within wants what lies behind it
        if (model_.Page() == nullptr && model_.Picture().empty()) {
            Fill(reinterpret_cast<HDC>(wParam));
        }
        return TRUE;
    case WM_PAINT:
        Paint();
        return 0;
    case WM_SIZE: // the picture is as large as the box
        ::InvalidateRect(Window(), nullptr, FALSE);
        return 0;
    default:
        return WinControl::Received(message, wParam, lParam);
    }
}

} // namespace

std::unique_ptr<WinControl> MakePictureBox(forms::PictureBox& control, WinForm& form,
                                           const WindowPlace& place) {
    return std::make_unique<WinPictureBox>(control, form, place);
}

} // namespace desktop::windows
