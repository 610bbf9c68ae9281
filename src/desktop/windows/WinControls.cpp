#include "desktop/windows/WinControls.h"

#include <algorithm>
#include <array>

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

namespace desktop::windows {

using forms::ControlKind;

namespace {

using ControlMaker = std::unique_ptr<WinControl>(forms::Control&, WinForm&, const WindowPlace&);

template <class ControlType, auto MakeKind>
std::unique_ptr<WinControl> Make(forms::Control& control, WinForm& form, const WindowPlace& place) {
    return MakeKind(static_cast<ControlType&>(control), form, place);
}

struct Maker {
    ControlKind Kind;
    ControlMaker* Make;
};

constexpr std::array<Maker, 17> Makers{{
    {ControlKind::CheckBox, Make<forms::CheckBox, MakeCheckBox>},
    {ControlKind::ComboBox, Make<forms::ComboBox, MakeComboBox>},
    {ControlKind::CommandButton, Make<forms::CommandButton, MakeCommandButton>},
    {ControlKind::FlatButton, Make<forms::cmdButtonXP, MakeFlatButton>},
    {ControlKind::Label, Make<forms::Label, MakeLabel>},
    {ControlKind::Line, Make<forms::LineControl, MakeLine>},
    {ControlKind::ListBox, Make<forms::ListBox, MakeListBox>},
    {ControlKind::MenuBar, Make<forms::MenuBar, MakeMenuBar>},
    {ControlKind::OptionButton, Make<forms::OptionButton, MakeOptionButton>},
    {ControlKind::PictureBox, Make<forms::PictureBox, MakePictureBox>},
    {ControlKind::ProgressBar, Make<forms::ProgressBar, MakeProgressBar>},
    {ControlKind::ScrollBar, Make<forms::ScrollBar, MakeScrollBar>},
    {ControlKind::StatusBar, Make<forms::StatusBar, MakeStatusBar>},
    {ControlKind::TextBox, Make<forms::TextBox, MakeTextBox>},
    {ControlKind::Timer, Make<forms::Timer, MakeTimer>},
    {ControlKind::Toolbar, Make<forms::Toolbar, MakeToolbar>},
    {ControlKind::UpDown, Make<forms::UpDown, MakeUpDown>},
}};

} // namespace

std::unique_ptr<WinControl> MakeWinControl(forms::Control& control, WinForm& form, const WindowPlace& place) {
    const auto maker = std::find_if(Makers.begin(), Makers.end(),
                                    [&](const Maker& candidate) { return candidate.Kind == control.Kind(); });
    if (maker == Makers.end()) {
        throw base::RuntimeError(base::ErrorInvalidPropertyValue, "No such kind of control");
    }
    return maker->Make(control, form, place);
}

} // namespace desktop::windows
