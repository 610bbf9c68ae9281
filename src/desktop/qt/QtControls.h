#pragma once

#include <memory>

#include "desktop/qt/QtControl.h"

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

namespace desktop::qt {

/// Makes the real control of the right kind within `parent`.
std::unique_ptr<QtControl> MakeQtControl(forms::Control& control, QtForm& form, QWidget* parent);

// The real control of each kind: its class stands whole in the file of its name.

std::unique_ptr<QtControl> MakeCheckBox(forms::CheckBox& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeComboBox(forms::ComboBox& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeCommandButton(forms::CommandButton& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeFlatButton(forms::cmdButtonXP& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeLabel(forms::Label& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeLine(forms::LineControl& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeListBox(forms::ListBox& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeMenuBar(forms::MenuBar& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeOptionButton(forms::OptionButton& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakePictureBox(forms::PictureBox& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeProgressBar(forms::ProgressBar& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeScrollBar(forms::ScrollBar& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeStatusBar(forms::StatusBar& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeTextBox(forms::TextBox& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeTimer(forms::Timer& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeToolbar(forms::Toolbar& control, QtForm& form, QWidget* parent);
std::unique_ptr<QtControl> MakeUpDown(forms::UpDown& control, QtForm& form, QWidget* parent);

} // namespace desktop::qt
