#pragma once

#include <string>

namespace forms {

class Control;
class Form;
class Label;

/// The character behind the "&" of a caption, in capitals; empty if it marks none ("&&" is a plain "&").
std::string MarkedKey(const std::string& caption);

/// A caption without the marks of access keys ("&Sluiten" is "Sluiten"; "&&" is "&").
std::string WithoutAccessKey(const std::string& caption);

/// The control that a label's access key goes to: the next one in the tab order, or in the order of making
/// for a label without a place in the tab order. nullptr if the label marks no key or none follows.
Control* AccessKeyTarget(const Label& label);

/// The user has pressed Alt with this character: presses the control whose caption marks it, or brings the
/// focus to the control that a label marks it for. False if no control that the user can reach has the key.
bool PressAccessKey(Form& form, char32_t character);

} // namespace forms
