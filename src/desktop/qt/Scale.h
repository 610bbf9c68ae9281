#pragma once

#include <QRect>

namespace desktop::qt {

/// The forms are designed in twips for a font of 9 points whose characters are 6 dots wide on average and
/// whose lines are 15 dots high. A user with a larger font gets everything larger by one factor, so that each
/// text still fits where it was put. High densities are the toolkit's own business: a dot here is a logical
/// one.
double ScaleFactor();

/// Logical dots of a twip.
double DotsPerTwip();

/// Twips of the design to logical dots, and back.
int ToDots(double twips);
double ToTwips(double dots);

/// Both edges are rounded, not the size, so that neighbours still touch.
QRect ToDots(double left, double top, double width, double height);

} // namespace desktop::qt
