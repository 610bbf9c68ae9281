#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Json.h"
#include "Target.h"
#include "forms/ChoiceControl.h"
#include "forms/MenuBar.h"
#include "forms/ScrollBar.h"
#include "forms/TextBox.h"
#include "machine/Platform.h"
#include "memory/MemoryPlatform.h"

namespace scenario {

/// Where a script is played: a desktop, and the hands of a user on it. Whatever else the program works with
/// is the memory platform's on each of them, and so is the record.
///
/// What a user does answers false where a real one could not do it; it then had no effect. Lengths are twips.
class Stage {
  public:
    virtual ~Stage() = default;

    /// What the program works with.
    virtual machine::Platform& Services() = 0;

    /// `next` plays the next line while a modal form keeps its caller waiting; false: there are no more
    /// lines. Forms that are still modal are then closed as by their close box; one that refuses is left,
    /// with an event "refused".
    virtual void WhileModal(std::function<bool()> next) = 0;
    /// False: the window system's own code stands between a modal form and its caller, and no exception may
    /// cross it.
    virtual bool ErrorsPass() const = 0;

    /// Waits until all that a line has set off is done.
    virtual void Settle() = 0;

    /// The form is on show, and no other keeps the user from it.
    virtual bool Reaches(const forms::Form& form) const = 0;

    /// What the desktop shows of a property of a control; nothing where the form alone knows it.
    virtual std::optional<Json> Shown(const Target& target, const PathPart& property) const = 0;

    // The mouse. A tool is a button of a toolbar, from 1; the pointer may rest on it as well.
    virtual bool Click(forms::Control& control) = 0;
    virtual bool ClickTool(forms::Control& toolbar, int number) = 0;
    virtual bool Pick(forms::ChoiceControl& list, int entry) = 0;
    virtual bool Focus(forms::Control& control) = 0;
    virtual bool Scroll(forms::ScrollBar& bar, int value) = 0;
    virtual bool Choose(forms::MenuBar& menu, const std::string& id) = 0;
    virtual void Wheel(forms::Form& form, int delta) = 0;
    virtual void Over(const Target& target) = 0;
    virtual void Away(const Target& target) = 0;
    virtual void Down(const Target& target) = 0;
    /// Lets go where the pointer then is.
    virtual void Up(const Target& target) = 0;

    // The keyboard. Codes are virtual key codes; `keys` goes to the box after a click on it, behind its text.
    virtual bool Type(forms::TextBox& box, const std::u32string& keys) = 0;
    virtual void Key(forms::Form& form, int code) = 0;

    // The window. Closing answers false if the form refuses.
    virtual bool Close(forms::Form& form) = 0;
    virtual void Resize(forms::Form& form, double width, double height) = 0;

    // What can be seen, where there is a screen: pictures go to NAME.png in the current folder. ScriptError
    // if one cannot be made.
    /// The form's window; `menu` opens its first menu over it, and closes that again.
    virtual void Picture(forms::Form& form, const std::string& name, bool menu) = 0;
    /// The message box or the window for a file's name that comes next, before it is answered.
    virtual void PictureNext(const std::string& name) = 0;
    /// The name that the next window for a file's name is answered with.
    virtual void FileNext(const std::string& file) = 0;
};

/// Makes a stage beside the rest of the machine, which outlives it.
using StageMaker = std::function<std::unique_ptr<Stage>(memory::MemoryPlatform&)>;

} // namespace scenario
