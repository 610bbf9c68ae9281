#pragma once

#include <string>

#include <QFont>

#include "machine/Canvas.h"

namespace desktop::qt {

/// Makes fonts known that a package keeps outside the folders that the desktop searches. Costs nothing after
/// the first call; ResolveFamily and DesignFont make it themselves. Bold faces follow with ProvideBold.
void LoadPackagedFonts();

/// The installed family that is meant by a font's name: the name itself, or the family that differs from it
/// in letter case, blanks and hyphens alone ("OCR-B" finds "OCR B"). A name without a family comes back as it
/// is, and Qt replaces the font.
std::string ResolveFamily(const std::string& wanted);

/// True if two names differ in letter case, blanks and hyphens alone.
bool IsSameFamily(const std::string& one, const std::string& other);

/// Where the bold face of a font's family is no bolder than the plain one, adds one that is: from then on a
/// bold font of the family is drawn with it, on paper and on the screen. Costs little after the first call
/// for a family; DesignFont makes it itself.
void ProvideBold(const QFont& font);

/// The font at its design widths, without kerning, ligatures and hinting, sized for units of 1/7200 inch.
QFont DesignFont(const machine::FontSpec& font);

} // namespace desktop::qt
