#pragma once

#include <string>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

class WinForm;

/// What a form's window sends itself to settle its focus after the messages that wait.
inline constexpr UINT MessageSettleFocus = WM_APP;

/// Makes the hidden top window of a form, of a window class with the form's name. Its messages go to the
/// form until LeaveWindow(). nullptr if Windows refuses.
HWND MakeFormWindow(WinForm& form, const std::string& name, DWORD style, DWORD extendedStyle);

/// From now on the window's messages go to nobody.
void LeaveWindow(HWND window);

} // namespace desktop::windows
