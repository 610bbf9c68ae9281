#pragma once

#include <string>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// The folder that the program's exe stands in, with a backslash at its end.
std::wstring ProgramFolder();

/// Opens a file, of a full name, in the program that the user has for its kind. False if it is not there, or
/// if nothing opens it. `owner` is the window that a question of Windows stands before.
bool OpenFileOfUser(HWND owner, const std::wstring& file);

} // namespace desktop::windows
