#pragma once

#include <QMessageBox>

namespace desktop::qt {

/// Gives the icon of a message box its name, and the program's own picture where the desktop has no icon
/// theme: the toolkit then has only bitmaps, which are coarse on a dense screen.
void SharpenIcon(QMessageBox& box);

} // namespace desktop::qt
