#pragma once

#include <QPalette>

#include "forms/Control.h"

namespace desktop::qt {

/// True for a kind that the toolkit draws with an outline and a filling of its own: boxes, buttons, bars.
bool DrawsItself(forms::ControlKind kind);

/// Under a dark theme the toolkit's own style outlines a box, a button and the mark of an option in a shade
/// that nobody sees; on black an option that is off would be no more than its text. Gives the palette of such
/// a control a shade that is seen, where it needs one.
void Outline(QPalette& palette, const QPalette& theme);

} // namespace desktop::qt
