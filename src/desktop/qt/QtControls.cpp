#include "desktop/qt/QtControls.h"

#include <utility>

#include "forms/ControlVisitor.h"
#include "forms/MenuItem.h"

namespace desktop::qt {

namespace {

/// Makes the real control of whatever it visits.
class Maker final : public forms::ControlVisitor {
  public:
    Maker(QtForm& form, QWidget* parent) : form_(form), parent_(parent) {}

    std::unique_ptr<QtControl> Take() { return std::move(made_); }

    void Visit(forms::CheckBox& control) override { made_ = MakeCheckBox(control, form_, parent_); }
    void Visit(forms::ComboBox& control) override { made_ = MakeComboBox(control, form_, parent_); }
    void Visit(forms::CommandButton& control) override { made_ = MakeCommandButton(control, form_, parent_); }
    void Visit(forms::Label& control) override { made_ = MakeLabel(control, form_, parent_); }
    void Visit(forms::LineControl& control) override { made_ = MakeLine(control, form_, parent_); }
    void Visit(forms::ListBox& control) override { made_ = MakeListBox(control, form_, parent_); }
    void Visit(forms::MenuBar& control) override { made_ = MakeMenuBar(control, form_, parent_); }
    void Visit(forms::MenuItem& control) override { // the user never sees it
        made_ = std::make_unique<QtControl>(control, form_, nullptr);
    }
    void Visit(forms::OptionButton& control) override { made_ = MakeOptionButton(control, form_, parent_); }
    void Visit(forms::PictureBox& control) override { made_ = MakePictureBox(control, form_, parent_); }
    void Visit(forms::ProgressBar& control) override { made_ = MakeProgressBar(control, form_, parent_); }
    void Visit(forms::ScrollBar& control) override { made_ = MakeScrollBar(control, form_, parent_); }
    void Visit(forms::StatusBar& control) override { made_ = MakeStatusBar(control, form_, parent_); }
    void Visit(forms::TextBox& control) override { made_ = MakeTextBox(control, form_, parent_); }
    void Visit(forms::Timer& control) override { made_ = MakeTimer(control, form_, parent_); }
    void Visit(forms::Toolbar& control) override { made_ = MakeToolbar(control, form_, parent_); }
    void Visit(forms::UpDown& control) override { made_ = MakeUpDown(control, form_, parent_); }
    void Visit(forms::cmdButtonXP& control) override { made_ = MakeFlatButton(control, form_, parent_); }

  private:
    QtForm& form_;
    QWidget* parent_;
    std::unique_ptr<QtControl> made_;
};

} // namespace

std::unique_ptr<QtControl> MakeQtControl(forms::Control& control, QtForm& form, QWidget* parent) {
    Maker maker(form, parent);
    control.Accept(maker);
    return maker.Take();
}

} // namespace desktop::qt
