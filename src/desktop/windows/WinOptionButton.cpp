#include <algorithm>

#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "forms/Form.h"
#include "forms/OptionButton.h"

namespace desktop::windows {

namespace {

/// Assistive technology counts the options of a group from the one that begins it.
DWORD GroupStyle(const forms::OptionButton& option) {
    const auto all = option.Owner().ControlsOf<forms::OptionButton>();
    const auto first = std::find_if(all.begin(), all.end(), [&](const forms::OptionButton* other) {
        return other->Container() == option.Container();
    });
    return *first == &option ? WS_GROUP : 0U;
}

class WinOptionButton final : public WinControl {
  public:
    WinOptionButton(forms::OptionButton& control, WinForm& form, const WindowPlace& place);

    bool IsRead() const override { return true; }
    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::OptionButton& model_;
};

// Which options exclude each other is the form's business.
WinOptionButton::WinOptionButton(forms::OptionButton& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, WC_BUTTONW, BS_RADIOBUTTON | WS_TABSTOP | GroupStyle(control)),
      model_(control) {}

void WinOptionButton::MirrorContent(forms::Aspect aspect) {
    if (aspect == forms::Aspect::Caption) {
        SetCaption(model_.Caption());
    } else if (aspect == forms::Aspect::Value) {
        Send(BM_SETCHECK, model_.Value() ? BST_CHECKED : BST_UNCHECKED);
    }
}

void WinOptionButton::Notified(UINT code) {
    if (code == BN_CLICKED) {
        Click();
    }
}

} // namespace

std::unique_ptr<WinControl> MakeOptionButton(forms::OptionButton& control, WinForm& form,
                                             const WindowPlace& place) {
    return std::make_unique<WinOptionButton>(control, form, place);
}

} // namespace desktop::windows
