#pragma once

#include <memory>

#include "desktop/windows/WinControl.h"

namespace forms {

class CheckBox;
class cmdButtonXP;
class ComboBox;
class CommandButton;
class Label;
class LineControl;
class ListBox;
class MenuBar;
class OptionButton;
class PictureBox;
class ProgressBar;
class ScrollBar;
class StatusBar;
class TextBox;
class Timer;
class Toolbar;
class UpDown;

} // namespace forms

namespace desktop::windows {

// The real control of each kind. A control's own window goes into `place`; a failure to make it is
// base::OutOfMemory.
std::unique_ptr<WinControl> MakeCheckBox(forms::CheckBox& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeComboBox(forms::ComboBox& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeCommandButton(forms::CommandButton& control, WinForm& form,
                                              const WindowPlace& place);
std::unique_ptr<WinControl> MakeFlatButton(forms::cmdButtonXP& control, WinForm& form,
                                           const WindowPlace& place);
std::unique_ptr<WinControl> MakeLabel(forms::Label& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeLine(forms::LineControl& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeListBox(forms::ListBox& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeMenuBar(forms::MenuBar& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeOptionButton(forms::OptionButton& control, WinForm& form,
                                             const WindowPlace& place);
std::unique_ptr<WinControl> MakePictureBox(forms::PictureBox& control, WinForm& form,
                                           const WindowPlace& place);
std::unique_ptr<WinControl> MakeProgressBar(forms::ProgressBar& control, WinForm& form,
                                            const WindowPlace& place);
std::unique_ptr<WinControl> MakeScrollBar(forms::ScrollBar& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeStatusBar(forms::StatusBar& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeTextBox(forms::TextBox& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeTimer(forms::Timer& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeToolbar(forms::Toolbar& control, WinForm& form, const WindowPlace& place);
std::unique_ptr<WinControl> MakeUpDown(forms::UpDown& control, WinForm& form, const WindowPlace& place);

/// Makes the real control of the right kind.
std::unique_ptr<WinControl> MakeWinControl(forms::Control& control, WinForm& form, const WindowPlace& place);

} // namespace desktop::windows
