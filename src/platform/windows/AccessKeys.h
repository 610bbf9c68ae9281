#pragma once

#include "platform/forms/Form.h"

namespace platform::windows {

/// The user has pressed Alt with this character: presses the control whose caption marks it, or brings the
/// focus to the control that a label marks it for. False if no control that the user can reach has the key.
bool PressAccessKey(forms::Form& form, char32_t character);

} // namespace platform::windows
