#pragma once

#include "desktop/windows/Win32.h"

#include "forms/Colour.h"
#include "forms/Control.h"

namespace desktop::windows {

/// A colour of a form as it is on this desktop; the system's colours follow the user's theme.
COLORREF ToColourRef(forms::Colour colour);

/// A brush for a background, which nobody has to release; a colour of the form's own is set on the device.
HBRUSH BrushFor(HDC device, forms::Colour colour);

/// The colour of a control's text upon that background. A user who has asked for high contrast gets the
/// system's in place of a form's own; elsewhere a form's own is made lighter or darker where it could not be
/// read.
COLORREF TextColourOf(const forms::Control& control);

} // namespace desktop::windows
