#pragma once

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// The window answers this with TRUE where its button is off.
inline constexpr UINT MessageIsOff = WM_APP;

/// The answer to WM_GETOBJECT of a button that the program draws itself. Assistive technology is told what
/// the system knows of the window, that it is a button, and whether it is off: the window itself stays as it
/// is, so that it shows its tip. 0 if this machine has no assistive technology to be told.
LRESULT AnswerAssistant(HWND button, WPARAM wParam);

} // namespace desktop::windows
