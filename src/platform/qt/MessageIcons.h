#pragma once

#include <QMessageBox>

namespace platform::qt {

/// Gives a message box the program's own picture of its icon where the desktop has no icon theme: the toolkit
/// then has only bitmaps, which are coarse on a dense screen.
void SharpenIcon(QMessageBox& box);

} // namespace platform::qt
