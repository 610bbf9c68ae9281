#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/PictureBox.h"

namespace desktop::windows {

/// A picture, an area of colour, or what holds other controls, whose messages it hands on to the form.
class WinPictureBox final : public WinControl {
  public:
    WinPictureBox(forms::PictureBox& control, WinForm& form, const WindowPlace& place);

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint() const;
    void Fill(HDC device) const;

    forms::PictureBox& model_;
};

} // namespace desktop::windows
