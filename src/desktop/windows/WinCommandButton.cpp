#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"

namespace desktop::windows {

namespace {

class WinCommandButton final : public WinControl {
  public:
    WinCommandButton(forms::CommandButton& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    void FormFocusMoved() override { Mirror(forms::Aspect::Value); } // Enter may press another button now
    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::CommandButton& model_;
};

WinCommandButton::WinCommandButton(forms::CommandButton& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_BUTTONW, BS_PUSHBUTTON | WS_TABSTOP), model_(control) {}

void WinCommandButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        SetCaption(model_.Caption());
    } else if (aspect == forms::Aspect::Value) {
        const DWORD look = model_.IsPressedByEnter() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((static_cast<DWORD>(::GetWindowLongW(Window(), GWL_STYLE)) & BS_TYPEMASK) != look) {
            Send(BM_SETSTYLE, look, TRUE);
        }
    }
}

void WinCommandButton::Notified(UINT code) {
    if (code == BN_CLICKED) {
        Click();
    }
}

} // namespace

std::unique_ptr<WinControl> MakeCommandButton(forms::CommandButton& control, WinForm& form,
                                              const WindowPlace& place) {
    return std::make_unique<WinCommandButton>(control, form, place);
}

} // namespace desktop::windows
