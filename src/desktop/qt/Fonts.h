#pragma once

#include <string>

#include <QFont>

#include "machine/Canvas.h"

namespace desktop::qt {

/// Pixels of a font's em for each point of size: drawing is in units of 1/7200 inch.
inline constexpr double UnitsPerPoint = 100;
inline constexpr double UnitsPerTwip = 5;

/// Largest size in points that a font is drawn and measured at; font files cannot be scaled much further.
inline constexpr double LargestFontSize = 600;

/// Makes fonts known that a package keeps outside the folders that the desktop searches. Costs nothing after
/// the first call; ResolveFamily and DesignFont make it themselves. Bold faces follow with ProvideBold.
void LoadPackagedFonts();

/// The installed family that is meant by a font's name: the name itself, or the family that differs from it
/// in letter case, blanks and hyphens alone ("OCR-B" finds "OCR B"). A name without a family comes back as it
/// is, and Qt replaces the font.
std::string ResolveFamily(const std::string& wanted);

/// Where the bold face of a font's family is no bolder than the plain one, adds one that is: from then on a
/// bold font of the family is drawn with it, on paper and on the screen. Costs little after the first call
/// for a family; DesignFont makes it itself.
void ProvideBold(const QFont& font);

/// The font at its design widths, without kerning, ligatures and hinting, sized for units of 1/7200 inch.
QFont DesignFont(const machine::FontSpec& font);

} // namespace desktop::qt
