#pragma once

#include <map>
#include <string>
#include <tuple>

#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/Scale.h"
#include "forms/Control.h"

namespace desktop::windows {

/// The fonts of one window, each made once for the density that the window has.
class Fonts {
  public:
    /// Valid as long as this object. An empty name or size gives the system's own. Sizes in points are those
    /// of the design; a user with a larger font sees all of them grow alike.
    HFONT Get(const forms::ControlFont& font, const Scale& scale);

  private:
    std::map<std::tuple<std::string, double, bool>, Font> fonts_;
};

/// Height of a line of the font.
int LineHeight(HFONT font);
/// Width of a text on one line.
int TextWidth(HFONT font, const std::wstring& text);

} // namespace desktop::windows
