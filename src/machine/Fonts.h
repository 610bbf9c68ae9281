#pragma once

#include <string>
#include <string_view>

#include "machine/Canvas.h"

namespace machine {

/// What a letter covers with ink, in twips from the top left of its place in the line. All 0 for a blank.
struct InkBox {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

/// The fonts of the machine as they print, without a printer or a page. Nothing here fails: a font that is
/// not there is replaced, as on paper.
class Fonts {
  public:
    virtual ~Fonts() = default;

    /// The family that prints where `name` is asked for; `name` as it was given where that is installed.
    virtual std::string FamilyFor(const std::string& name) = 0;

    /// True if the font itself has a picture of the letter, so that none of another font is put in its place.
    virtual bool HasLetter(const FontSpec& font, char32_t letter) = 0;

    /// Measures of a UTF-8 text, as Canvas::MeasureText of a printer gives them but for the rounding to its
    /// dots.
    virtual TextSize MeasureText(std::string_view text, const FontSpec& font) = 0;

    /// What one letter of a printed text covers.
    virtual InkBox InkOf(char32_t letter, const FontSpec& font) = 0;
};

} // namespace machine
