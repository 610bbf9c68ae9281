#include "desktop/qt/QtControls.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "forms/CheckBox.h"
#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/MenuBar.h"
#include "forms/OptionButton.h"
#include "forms/PictureBox.h"
#include "forms/ProgressBar.h"
#include "forms/ScrollBar.h"
#include "forms/StatusBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/Toolbar.h"
#include "forms/UpDown.h"
#include "forms/cmdButtonXP.h"

namespace desktop::qt {

using forms::ControlKind;

namespace {

template <class ControlType, std::unique_ptr<QtControl> (*Make)(ControlType&, QtForm&, QWidget*)>
std::unique_ptr<QtControl> As(forms::Control& control, QtForm& form, QWidget* parent) {
    return Make(static_cast<ControlType&>(control), form, parent);
}

struct Maker {
    ControlKind Kind;
    std::unique_ptr<QtControl> (*Make)(forms::Control&, QtForm&, QWidget*);
};

constexpr std::array<Maker, 17> Makers{{
    {ControlKind::CheckBox, As<forms::CheckBox, MakeCheckBox>},
    {ControlKind::ComboBox, As<forms::ComboBox, MakeComboBox>},
    {ControlKind::CommandButton, As<forms::CommandButton, MakeCommandButton>},
    {ControlKind::FlatButton, As<forms::cmdButtonXP, MakeFlatButton>},
    {ControlKind::Label, As<forms::Label, MakeLabel>},
    {ControlKind::Line, As<forms::LineControl, MakeLine>},
    {ControlKind::ListBox, As<forms::ListBox, MakeListBox>},
    {ControlKind::MenuBar, As<forms::MenuBar, MakeMenuBar>},
    {ControlKind::OptionButton, As<forms::OptionButton, MakeOptionButton>},
    {ControlKind::PictureBox, As<forms::PictureBox, MakePictureBox>},
    {ControlKind::ProgressBar, As<forms::ProgressBar, MakeProgressBar>},
    {ControlKind::ScrollBar, As<forms::ScrollBar, MakeScrollBar>},
    {ControlKind::StatusBar, As<forms::StatusBar, MakeStatusBar>},
    {ControlKind::TextBox, As<forms::TextBox, MakeTextBox>},
    {ControlKind::Timer, As<forms::Timer, MakeTimer>},
    {ControlKind::Toolbar, As<forms::Toolbar, MakeToolbar>},
    {ControlKind::UpDown, As<forms::UpDown, MakeUpDown>},
}};

} // namespace

std::unique_ptr<QtControl> MakeQtControl(forms::Control& control, QtForm& form, QWidget* parent) {
    const auto maker = std::find_if(Makers.begin(), Makers.end(),
                                    [&](const Maker& candidate) { return candidate.Kind == control.Kind(); });
    if (maker == Makers.end()) {
        throw base::RuntimeError(base::ErrorInvalidPropertyValue, "No such kind of control");
    }
    return maker->Make(control, form, parent);
}

} // namespace desktop::qt
