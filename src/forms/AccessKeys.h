#pragma once

#include <string>

namespace forms {

class Form;

/// The character behind the "&" of a caption, in capitals; empty if it marks none ("&&" is a plain "&").
std::string MarkedKey(const std::string& caption);

/// The user has pressed Alt with this character: presses the control whose caption marks it, or brings the
/// focus to the control that a label marks it for. False if no control that the user can reach has the key.
bool PressAccessKey(Form& form, char32_t character);

} // namespace forms
