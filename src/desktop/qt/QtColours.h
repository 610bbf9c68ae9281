#pragma once

#include <QColor>
#include <QPalette>

#include "forms/Colour.h"

namespace desktop::qt {

/// A colour of a form as it looks in this palette; the system's colours follow the user's theme.
QColor ToQColor(forms::Colour colour, const QPalette& palette);

/// A colour of the desktop as a plain colour of a form.
forms::Colour FromQColor(const QColor& colour);

/// Under a dark theme the toolkit's own style outlines a box, a button and the mark of an option in a shade
/// that nobody sees; on black an option that is off would be no more than its text. Gives the palette of such
/// a control a shade that is seen, where it needs one.
void Outline(QPalette& palette, const QPalette& theme);

} // namespace desktop::qt
