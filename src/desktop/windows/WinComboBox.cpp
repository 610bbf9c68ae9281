#include <algorithm>

#include "desktop/windows/DpiFunctions.h"
#include "desktop/windows/Fonts.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/ChoiceControl.h"

namespace desktop::windows {

namespace {

constexpr UINT MessageListClosed = WM_APP;
constexpr int MostLines = 12; // that the list shows at once

/// While the list is down, the choice is on trial; it counts when the list closes, unless the user leaves it
/// with Escape.
class WinComboBox final : public WinControl {
  public:
    WinComboBox(forms::ComboBox& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    void Notified(UINT code) override;
    bool KeepsEnterAndEscape() const override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    void Place() override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    int Chosen() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    void Pick();
    void ListClosed();
    void WidenList();

    forms::ComboBox& model_;
    bool listIsDown_ = false;
    bool listCloses_ = false; // the list is gone, and what it means has not been looked at yet
    bool accepted_ = false;
};

WinComboBox::WinComboBox(forms::ComboBox& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP),
      model_(control) {}

void WinComboBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Items) {
        if (Send(CB_GETCOUNT) > model_.ListCount()) {
            Send(CB_RESETCONTENT);
        }
        while (Send(CB_GETCOUNT) < model_.ListCount()) {
            const std::wstring text = ToWide(model_.List(static_cast<int>(Send(CB_GETCOUNT))));
            Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
    } else if (aspect != forms::Aspect::Value) {
        return;
    }
    Send(CB_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()));
}

// The height of a combo box is that of its list; the box itself is as high as its font wants it, and stands
// in the middle of its place.
void WinComboBox::Place() {
    RECT area = Form().Scaling().ToDots(model_.Left(), model_.Top(), model_.Width(), model_.Height());
    const LONG wanted = area.bottom - area.top;
    RECT present{};
    ::GetWindowRect(Window(), &present);
    const LONG own = present.bottom - present.top;
    area.top += (wanted - own) / 2;
    area.bottom = area.top + own + MostLines * static_cast<LONG>(Send(CB_GETITEMHEIGHT, 0));
    MoveTo(area);
}

bool WinComboBox::KeepsEnterAndEscape() const {
    return Send(CB_GETDROPPEDSTATE) != FALSE;
}

// The names of papers are often wider than the box.
void WinComboBox::WidenList() {
    int widest = 0;
    for (int index = 0; index < model_.ListCount(); ++index) {
        widest = std::max(widest, TextWidth(FontOf(), ToWide(model_.List(index))));
    }
    const int bar = model_.ListCount() > MostLines ? SystemMetric(SM_CXVSCROLL, DpiOf(Window())) : 0;
    constexpr double margins = 180; // twips
    const int width = widest + bar + Form().Scaling().ToDots(margins);
    Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width));
}

void WinComboBox::Pick() {
    model_.UserPick(Chosen());
    Mirror(forms::Aspect::Value);
}

// Windows tells of the end of the list and of the choice in an order that cannot be relied on, so both are
// looked at when it has told all.
void WinComboBox::ListClosed() {
    listCloses_ = false;
    if (accepted_ && Chosen() != model_.ListIndex()) {
        model_.UserPick(Chosen());
    }
    Mirror(forms::Aspect::Value);
}

void WinComboBox::Notified(UINT code) {
    switch (code) {
    case CBN_DROPDOWN:
        listIsDown_ = true;
        accepted_ = false;
        WidenList();
        break;
    case CBN_SELENDOK:
        accepted_ = true;
        break;
    case CBN_SELENDCANCEL:
        accepted_ = false;
        break;
    case CBN_CLOSEUP:
        listIsDown_ = false;
        listCloses_ = true;
        ::PostMessageW(Window(), MessageListClosed, 0, 0);
        break;
    case CBN_SELCHANGE:
        if (!listIsDown_ && !listCloses_) {
            Pick();
        }
        break;
    default:
        break;
    }
}

LRESULT WinComboBox::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == MessageListClosed) {
        ListClosed();
        return 0;
    }
    return WinControl::Received(message, wParam, lParam);
}

} // namespace

std::unique_ptr<WinControl> MakeComboBox(forms::ComboBox& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinComboBox>(control, form, place);
}

} // namespace desktop::windows
