#pragma once

#include <string>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// Asks in Windows' own window for the name of a text file to write, which has the user confirm to replace a
/// file. The empty text if the user wants none. UTF-8.
std::string AskForTextFile(HWND owner, const std::string& proposed);

/// Writes lines that end in LF with the line ends of Windows. False if not all of it is in the file.
bool WriteTextFile(const std::string& file, const std::string& text);

} // namespace desktop::windows
