#pragma once

#include <memory>
#include <string>

#include "desktop/windows/Win32.h"

#include "machine/Bitmaps.h"

namespace desktop::windows {

/// Class of a window that draws nothing by itself and reports double clicks.
const wchar_t* PlainWindowClass();

/// What a window of that class shows.
struct PictureContent {
    COLORREF Background;
    /// Name of one of the program's own pictures, as large as the window allows.
    std::string Picture;
    /// Takes the place of the picture, from the top left on.
    std::shared_ptr<const machine::PageBitmap> Page;
    /// Dots of this window's screen to an inch of the page.
    int DotsPerInch;
};

/// Answers WM_PAINT. Every dot of the window is drawn once, so nothing flickers.
void PaintPicture(HWND window, const PictureContent& content);

} // namespace desktop::windows
