#pragma once

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// What Windows 10 knows of densities, and what an older one answers in its place. A density is a number of
/// dots to the inch, 96 at its lowest.

/// Of the primary screen when the program started.
UINT SystemDpi();
/// Of the screen that a window stands on.
UINT DpiOf(HWND window);

/// The frame around a window's inside: margins to its outside, the upper and the left one negative.
RECT FrameMargins(DWORD style, DWORD extendedStyle, bool menu, UINT dpi);

/// The system's font for messages and dialogs.
LOGFONTW MessageFont(UINT dpi);

/// GetSystemMetrics for a density.
int SystemMetric(int index, UINT dpi);

} // namespace desktop::windows
