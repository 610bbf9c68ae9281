#pragma once

#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/WinControl.h"
#include "forms/Toolbar.h"

namespace desktop::windows {

/// A row of buttons that light up under the mouse; a button is as wide as the toolbar is high. The commands
/// of the buttons: see ControlIds.h.
class WinToolbar final : public WinControl {
  public:
    WinToolbar(forms::Toolbar& control, WinForm& form, const WindowPlace& place);

    void Commanded(int id, UINT code) override;
    LRESULT Notified(NMHDR& header) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    void Place() override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    using Pictures = Owned<HIMAGELIST, ::ImageList_Destroy>;

    void AddButton(int number);
    void ShowButton(int number);
    void MakePictures();
    std::wstring NameOf(const forms::ToolbarButton& button) const;
    /// The text that shows when the mouse rests on a button; empty for none.
    std::wstring TipOf(UINT_PTR command) const;
    void Erase(HDC device) const;

    forms::Toolbar& model_;
    int shownButtons_ = 0;
    COLORREF background_ = 0; // that the pictures are drawn for
    int pictureSide_ = 0;     // dots
    int pictures_ = 0;
    Pictures normal_;
    Pictures hot_;
    Pictures disabled_;
};

} // namespace desktop::windows
