#pragma once

#include <string>

#include "desktop/windows/GdiObjects.h"

namespace desktop::windows {

/// True if the program has a picture of this name.
bool IsPicture(const std::string& name);

/// Draws a picture as large as the area allows, in its middle and sharp at any size. What it leaves free of
/// the area stays as it is. Nothing happens for a name that is no picture. Each picture is drawn once for
/// each size and background, of which its signs stand out, and kept for the rest of the process.
void DrawPicture(HDC device, const std::string& name, const RECT& area, COLORREF background);

/// Off: on a button that cannot be pressed.
enum class PictureLook { Plain, Off };

/// Dots each way.
struct IconSize {
    int Icon;
    int Picture; ///< in the middle of the icon
};

/// A picture as an icon, for an image list; empty if it cannot be made.
Icon PictureIcon(const std::string& name, const IconSize& size, PictureLook look, COLORREF background);

} // namespace desktop::windows
