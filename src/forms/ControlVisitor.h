#pragma once

namespace forms {

class CheckBox;
class ComboBox;
class CommandButton;
class Label;
class LineControl;
class ListBox;
class MenuBar;
class MenuItem;
class OptionButton;
class PictureBox;
class ProgressBar;
class ScrollBar;
class StatusBar;
class TextBox;
class Timer;
class Toolbar;
class UpDown;
class cmdButtonXP;

/// What is done with a control of a kind that only the control itself knows, one member for each: a desktop
/// makes its own control by one. A kind that is forgotten does not compile.
class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;

    virtual void Visit(CheckBox& control) = 0;
    virtual void Visit(ComboBox& control) = 0;
    virtual void Visit(CommandButton& control) = 0;
    virtual void Visit(Label& control) = 0;
    virtual void Visit(LineControl& control) = 0;
    virtual void Visit(ListBox& control) = 0;
    virtual void Visit(MenuBar& control) = 0;
    virtual void Visit(MenuItem& control) = 0;
    virtual void Visit(OptionButton& control) = 0;
    virtual void Visit(PictureBox& control) = 0;
    virtual void Visit(ProgressBar& control) = 0;
    virtual void Visit(ScrollBar& control) = 0;
    virtual void Visit(StatusBar& control) = 0;
    virtual void Visit(TextBox& control) = 0;
    virtual void Visit(Timer& control) = 0;
    virtual void Visit(Toolbar& control) = 0;
    virtual void Visit(UpDown& control) = 0;
    virtual void Visit(cmdButtonXP& control) = 0;
};

} // namespace forms
