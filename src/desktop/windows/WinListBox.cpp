#include "desktop/windows/Fonts.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/ChoiceControl.h"

namespace desktop::windows {

namespace {

class WinListBox final : public WinControl {
  public:
    WinListBox(forms::ListBox& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Pick(int index);
    void MouseReleased(LPARAM place);

    forms::ListBox& model_;
    bool picked_ = false; // the press in progress has picked an entry already
};

WinListBox::WinListBox(forms::ListBox& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_LISTBOXW,
                 LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE),
      model_(control) {}

void WinListBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Font) {
        constexpr double lineGap = 45; // twips
        Send(LB_SETITEMHEIGHT, 0, LineHeight(FontOf()) + Form().Scaling().ToDots(lineGap));
    } else if (aspect == forms::Aspect::Items) {
        if (Send(LB_GETCOUNT) > model_.ListCount()) {
            Send(LB_RESETCONTENT);
        }
        while (Send(LB_GETCOUNT) < model_.ListCount()) {
            const std::wstring text = ToWide(model_.List(static_cast<int>(Send(LB_GETCOUNT))));
            Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
    } else if (aspect != forms::Aspect::Value) {
        return;
    }
    Send(LB_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()));
}

void WinListBox::Pick(int index) {
    picked_ = true;
    model_.UserPick(index);
    Mirror(forms::Aspect::Value);
}

void WinListBox::Notified(UINT code) {
    if (code == LBN_SELCHANGE) {
        Pick(static_cast<int>(Send(LB_GETCURSEL)));
    }
}

// A click on the entry that is selected already is a click all the same.
void WinListBox::MouseReleased(LPARAM place) {
    const LRESULT hit = Send(LB_ITEMFROMPOINT, 0, place);
    const int index = LOWORD(hit);
    if (!picked_ && HIWORD(hit) == 0 && index == model_.ListIndex()) {
        Pick(index);
    }
}

LRESULT WinListBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN) {
        picked_ = false;
    }
    const bool ownPress = message == WM_LBUTTONUP && ::GetCapture() == Window();
    const LRESULT result = WinControl::Received(message, wParam, lParam);
    if (ownPress) {
        MouseReleased(lParam);
    }
    return result;
}

} // namespace

std::unique_ptr<WinControl> MakeListBox(forms::ListBox& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinListBox>(control, form, place);
}

} // namespace desktop::windows
