#include <algorithm>

#include "base/Text.h"
#include "desktop/windows/Colours.h"
#include "desktop/windows/ControlIds.h"
#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/VectorPicture.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/Toolbar.h"

namespace desktop::windows {

namespace {

// Twips.
constexpr double RuleWidth = 150;
constexpr double PictureMargin = 120;

/// A row of buttons that light up under the mouse; a button is as wide as the toolbar is high. The commands
/// of the buttons: see ControlIds.h.
class WinToolbar final : public WinControl {
  public:
    WinToolbar(forms::Toolbar& control, WinForm& form, const WindowPlace& place);

    bool IsNamed() const override { return true; }
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
    int imageSide_ = 0;       // dots
    int pictureSide_ = 0;     // dots, in the middle of an image
    int pictures_ = 0;
    Pictures normal_;
    Pictures hot_;
    Pictures disabled_;
};

// The texts of the buttons are for assistive technology: mixed buttons show none by themselves.
WinToolbar::WinToolbar(forms::Toolbar& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, TOOLBARCLASSNAMEW,
                 TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_NODIVIDER | CCS_NORESIZE |
                     CCS_NOPARENTALIGN),
      model_(control) {
    Send(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
    Send(TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
}

std::wstring WinToolbar::NameOf(const forms::ToolbarButton& button) const {
    return ToWide(
        base::text::Trim(button.AccessibleName.empty() ? button.ToolTipText : button.AccessibleName));
}

void WinToolbar::AddButton(int number) {
    const forms::ToolbarButton& model = model_.Button(number);
    const std::wstring name = NameOf(model);
    TBBUTTON button{};
    button.idCommand = FirstToolbarButton + number;
    if (model.Separator) {
        button.iBitmap = Form().Scaling().ToDots(RuleWidth);
        button.fsStyle = BTNS_SEP;
    } else {
        button.iBitmap = pictures_++;
        button.fsStyle = BTNS_BUTTON;
        button.fsState = TBSTATE_ENABLED;
        button.iString = reinterpret_cast<INT_PTR>(name.c_str());
    }
    Send(TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
}

void WinToolbar::ShowButton(int number) {
    const forms::ToolbarButton& model = model_.Button(number);
    if (model.Separator) { // as wide as the screen's density asks
        TBBUTTONINFOW gap{};
        gap.cbSize = sizeof gap;
        gap.dwMask = TBIF_SIZE;
        gap.cx = static_cast<WORD>(Form().Scaling().ToDots(RuleWidth));
        Send(TB_SETBUTTONINFOW, static_cast<WPARAM>(FirstToolbarButton + number),
             reinterpret_cast<LPARAM>(&gap));
        return;
    }
    std::wstring name = NameOf(model);
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT | TBIF_STATE;
    info.pszText = name.data();
    info.fsState = model.Enabled ? TBSTATE_ENABLED : BYTE{0};
    Send(TB_SETBUTTONINFOW, static_cast<WPARAM>(FirstToolbarButton + number),
         reinterpret_cast<LPARAM>(&info));
}

void WinToolbar::MakePictures() {
    const auto make = [this] {
        return Pictures(::ImageList_Create(imageSide_, imageSide_, ILC_COLOR32, model_.ButtonCount(), 0));
    };
    const auto add = [this](const Pictures& list, const std::string& name, PictureLook look) {
        const Icon icon = PictureIcon(name, {imageSide_, pictureSide_}, look, background_);
        ::ImageList_ReplaceIcon(list.Get(), -1, icon.Get());
    };
    Pictures normal = make();
    Pictures hot = make();
    Pictures disabled = make();
    background_ = ToColourRef(model_.ShownBackColor());
    for (int number = 1; number <= model_.ButtonCount(); ++number) {
        const forms::ToolbarButton& button = model_.Button(number);
        if (!button.Separator) {
            add(normal, button.Image, PictureLook::Plain);
            add(hot, button.HotImage, PictureLook::Plain);
            add(disabled, button.Image, PictureLook::Off);
        }
    }
    Send(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(normal.Get()));
    Send(TB_SETHOTIMAGELIST, 0, reinterpret_cast<LPARAM>(hot.Get()));
    Send(TB_SETDISABLEDIMAGELIST, 0, reinterpret_cast<LPARAM>(disabled.Get()));
    normal_ = std::move(normal);
    hot_ = std::move(hot);
    disabled_ = std::move(disabled);
}

void WinToolbar::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Colours && shownButtons_ > 0 &&
        background_ != ToColourRef(model_.ShownBackColor())) {
        MakePictures();
    }
    if (aspect != forms::Aspect::Items) {
        return;
    }
    const bool grows = shownButtons_ < model_.ButtonCount();
    if (grows) {
        MakePictures();
    }
    while (shownButtons_ < model_.ButtonCount()) {
        AddButton(++shownButtons_);
    }
    for (int number = 1; number <= shownButtons_; ++number) {
        ShowButton(number);
    }
    if (grows) {
        Place();
    }
}

void WinToolbar::Place() {
    WinControl::Place();
    const Scale& scale = Form().Scaling();
    const int side = scale.ToDots(model_.Height());
    // Where in a larger button an image stands is not the same on every Windows: it fills the button as far
    // as the button lets it, and has the picture in its middle.
    const auto padding = static_cast<DWORD>(Send(TB_GETPADDING));
    const int image = side - std::max(LOWORD(padding), HIWORD(padding));
    const int picture = scale.ToDots(model_.Height() - 2 * PictureMargin);
    if (picture > 0 && image != imageSide_) {
        imageSide_ = image;
        pictureSide_ = picture;
        Send(TB_SETBITMAPSIZE, 0, MAKELPARAM(image, image));
        MakePictures();
    }
    Send(TB_SETBUTTONSIZE, 0, MAKELPARAM(side, side));
}

void WinToolbar::Commanded(int id, UINT /*code*/) {
    model_.UserClickButton(id - FirstToolbarButton);
}

std::wstring WinToolbar::TipOf(UINT_PTR command) const {
    const int number = static_cast<int>(command) - FirstToolbarButton;
    return number >= 1 && number <= model_.ButtonCount() ? ToWide(model_.Button(number).ToolTipText)
                                                         : std::wstring();
}

LRESULT WinToolbar::Notified(NMHDR& header) {
    if (header.code == static_cast<UINT>(TBN_GETINFOTIPW)) {
        auto& tip = reinterpret_cast<NMTBGETINFOTIPW&>(header);
        if (tip.cchTextMax > 0) {
            ::lstrcpynW(tip.pszText, TipOf(static_cast<UINT_PTR>(tip.iItem)).c_str(), tip.cchTextMax);
        }
    }
    return 0;
}

void WinToolbar::Erase(HDC device) const {
    RECT area{};
    ::GetClientRect(Window(), &area);
    ::FillRect(device, &area, BrushFor(device, model_.ShownBackColor()));
}

LRESULT WinToolbar::Received(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND) {
        Erase(reinterpret_cast<HDC>(wParam));
        return TRUE;
    }
    // The window of tips asks. For a button without one the bar would answer with the button's text.
    if (message == WM_NOTIFY) {
        const auto& asked = *reinterpret_cast<const NMHDR*>(lParam);
        const bool forTip = asked.code == static_cast<UINT>(TTN_GETDISPINFOW) ||
                            asked.code == static_cast<UINT>(TTN_GETDISPINFOA);
        if (forTip && TipOf(asked.idFrom).empty()) {
            return 0;
        }
    }
    return WinControl::Received(message, wParam, lParam);
}

} // namespace

std::unique_ptr<WinControl> MakeToolbar(forms::Toolbar& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinToolbar>(control, form, place);
}

} // namespace desktop::windows
