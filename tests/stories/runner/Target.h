#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/Form.h"

namespace scenario {

class World;

/// One part of a path: a name, with or without a number in brackets.
struct PathPart {
    std::string Name;
    int Index = forms::Control::NoIndex;

    bool HasIndex() const { return Index != forms::Control::NoIndex; }
};

/// "frmMain.UserText(70).Text" in parts. ScriptError for brackets that hold no number.
std::vector<PathPart> PartsOf(std::string_view path);

/// A control of a form; where toolbars and status bars are meant, one of their elements, from 1.
struct Target {
    forms::Form* Form = nullptr;
    forms::Control* Control = nullptr;
    int Element = forms::Control::NoIndex;
};

/// ScriptError if the form has no such control.
Target ControlOf(forms::Form& form, const PathPart& part);
/// "F.C" of a loaded form.
Target TargetOf(const World& world, std::string_view path);

/// "UserText(70)"
std::string FullName(const forms::Control& control);

} // namespace scenario
