#pragma once

#include <QColor>
#include <QPalette>

#include "forms/Colour.h"

namespace desktop::qt {

/// A colour of a form as it looks in this palette; the system's colours follow the user's theme.
QColor ToQColor(forms::Colour colour, const QPalette& palette);

/// A colour of the desktop as a plain colour of a form.
forms::Colour FromQColor(const QColor& colour);

} // namespace desktop::qt
