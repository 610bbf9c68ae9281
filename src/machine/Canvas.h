#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace machine {

/// A font by name, size in points and weight.
struct FontSpec {
    std::string Name;
    double Size = 8;
    bool Bold = false;

    bool operator==(const FontSpec&) const = default;
};

/// Measures of a text in twips, as it will be drawn.
struct TextSize {
    double Width = 0;
    double Height = 0;
};

/// Largest size in points that a font is drawn and measured at; font files cannot be scaled much further.
inline constexpr double LargestDrawnPoints = 600;

/// What a page is drawn on: paper, a preview bitmap, or a record of the calls. All lengths are twips (1440 to
/// the inch) from the top left of the printable area, y downward; a text stands with its top left corner at
/// (x, y). A font that the machine lacks is replaced, and measured as it is drawn. The document begins with
/// the first output. A failing call raises RuntimeError.
class Canvas {
  public:
    virtual ~Canvas() = default;

    virtual TextSize MeasureText(std::string_view text, const FontSpec& font) = 0;
    virtual void DrawText(double x, double y, std::string_view text, const FontSpec& font) = 0;
    /// A straight line of the default width. `colour` holds red in its lowest byte, then green, then blue.
    virtual void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) = 0;
    virtual void NewPage() = 0;
    virtual void EndDocument() = 0;
};

} // namespace machine
