#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "machine/Canvas.h"

namespace machine {

/// What was drawn on a page, call by call, to be drawn again on any canvas: a few kilobytes, where a picture
/// takes megabytes and is sharp at one density alone.
class PageRecord {
  public:
    /// An empty text leaves nothing behind. std::bad_alloc without memory; what was added before may then be
    /// gone, until Clear().
    void AddText(double x, double y, std::string_view text, const FontSpec& font);
    void AddLine(double x1, double y1, double x2, double y2, std::int32_t colour);

    /// Takes all away, and keeps the room for the next page. A copy has no more room than it needs.
    void Clear();

    /// Draws all of it in the order in which it was added.
    void DrawOn(Canvas& canvas) const;

  private:
    struct Text {
        double X;
        double Y;
        std::size_t End; ///< of its characters, which begin where those of the text before end
        std::size_t Font;
    };
    struct Line {
        double X1;
        double Y1;
        double X2;
        double Y2;
        std::size_t TextsBefore;
        std::int32_t Colour;
    };

    std::size_t NumberOf(const FontSpec& font);

    std::vector<Text> texts_;
    std::vector<Line> lines_;
    std::string characters_;
    std::vector<FontSpec> fonts_; ///< each once
};

} // namespace machine
