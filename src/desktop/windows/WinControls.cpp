#include "desktop/windows/WinControls.h"

#include <utility>

#include "desktop/windows/WinControl.h"
#include "forms/ControlVisitor.h"
#include "forms/MenuItem.h"

namespace desktop::windows {

namespace {

/// Makes the real control of whatever it visits.
class Maker final : public forms::ControlVisitor {
  public:
    Maker(WinForm& form, const WindowPlace& place) : form_(form), place_(place) {}

    std::unique_ptr<WinControl> Take() { return std::move(made_); }

    void Visit(forms::CheckBox& control) override { made_ = MakeCheckBox(control, form_, place_); }
    void Visit(forms::ComboBox& control) override { made_ = MakeComboBox(control, form_, place_); }
    void Visit(forms::CommandButton& control) override { made_ = MakeCommandButton(control, form_, place_); }
    void Visit(forms::Label& control) override { made_ = MakeLabel(control, form_, place_); }
    void Visit(forms::LineControl& control) override { made_ = MakeLine(control, form_, place_); }
    void Visit(forms::ListBox& control) override { made_ = MakeListBox(control, form_, place_); }
    void Visit(forms::MenuBar& control) override { made_ = MakeMenuBar(control, form_, place_); }
    void Visit(forms::MenuItem& control) override { // the user never sees it
        made_ = std::make_unique<WinControl>(control, form_, place_, nullptr);
    }
    void Visit(forms::OptionButton& control) override { made_ = MakeOptionButton(control, form_, place_); }
    void Visit(forms::PictureBox& control) override { made_ = MakePictureBox(control, form_, place_); }
    void Visit(forms::ProgressBar& control) override { made_ = MakeProgressBar(control, form_, place_); }
    void Visit(forms::ScrollBar& control) override { made_ = MakeScrollBar(control, form_, place_); }
    void Visit(forms::StatusBar& control) override { made_ = MakeStatusBar(control, form_, place_); }
    void Visit(forms::TextBox& control) override { made_ = MakeTextBox(control, form_, place_); }
    void Visit(forms::Timer& control) override { made_ = MakeTimer(control, form_, place_); }
    void Visit(forms::Toolbar& control) override { made_ = MakeToolbar(control, form_, place_); }
    void Visit(forms::UpDown& control) override { made_ = MakeUpDown(control, form_, place_); }
    void Visit(forms::cmdButtonXP& control) override { made_ = MakeFlatButton(control, form_, place_); }

  private:
    WinForm& form_;
    const WindowPlace& place_;
    std::unique_ptr<WinControl> made_;
};

} // namespace

std::unique_ptr<WinControl> MakeWinControl(forms::Control& control, WinForm& form, const WindowPlace& place) {
    Maker maker(form, place);
    control.Accept(maker);
    return maker.Take();
}

} // namespace desktop::windows
