#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/CheckBox.h"

namespace desktop::windows {

namespace {

class WinCheckBox final : public WinControl {
  public:
    WinCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::CheckBox& model_;
};

WinCheckBox::WinCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_BUTTONW, BS_CHECKBOX | WS_TABSTOP), model_(control) {}

void WinCheckBox::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        SetCaption(model_.Caption());
    } else if (aspect == forms::Aspect::Value) {
        Send(BM_SETCHECK, model_.Value() ? BST_CHECKED : BST_UNCHECKED);
    }
}

void WinCheckBox::Notified(UINT code) {
    if (code == BN_CLICKED) {
        Click();
    }
}

} // namespace

std::unique_ptr<WinControl> MakeCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinCheckBox>(control, form, place);
}

} // namespace desktop::windows
