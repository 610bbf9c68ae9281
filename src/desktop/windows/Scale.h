#pragma once

#include "desktop/windows/Win32.h"

#include "base/Units.h"

namespace desktop::windows {

/// From twips of the design to the dots of a screen. The forms are designed for a font of 9 points whose
/// characters are 6 dots wide on average and whose lines are 15 dots high, at 96 dots to the inch. A user
/// with a larger font gets everything larger by one factor, so that each text still fits where it was put.
class Scale {
  public:
    /// For a screen of so many dots to the inch.
    explicit Scale(UINT dpi);

    UINT Dpi() const { return dpi_; }
    /// Dots to an inch of the design: a whole number, so that what is drawn for it is shown dot for dot.
    int DotsPerInch() const { return dotsPerInch_; }
    /// How much larger than in the design everything is, apart from the density.
    double Growth() const { return growth_; }

    int ToDots(double twips) const;
    double ToTwips(int dots) const { return dots * base::TwipsPerInch / dotsPerInch_; }
    /// Both edges are rounded, not the size, so that neighbours still touch.
    RECT ToDots(double left, double top, double width, double height) const;
    /// The thickness of a rule, which is 1 dot at 96 to the inch.
    int RuleWidth() const;

  private:
    UINT dpi_;
    double growth_;
    int dotsPerInch_;
};

/// The one for the primary screen, on which the design's places on the screen are counted.
Scale ScreenScale();

} // namespace desktop::windows
