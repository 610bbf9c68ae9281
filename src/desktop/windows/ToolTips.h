#pragma once

#include <string>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// The tips of one form's controls.
class ToolTips {
  public:
    /// Shows this tip while the mouse rests on the control; an empty text shows none.
    void Set(HWND control, const std::string& text);

  private:
    HWND window_ = nullptr; // made with the first tip; the form's window owns it and takes it along
};

} // namespace desktop::windows
