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

enum class PictureLook { Plain, Faded };

/// A picture as an icon of so many dots each way, for an image list; empty if it cannot be made.
Icon PictureIcon(const std::string& name, int side, PictureLook look, COLORREF background);

} // namespace desktop::windows
