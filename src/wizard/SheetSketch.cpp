#include "wizard/SheetSketch.h"

#include <algorithm>

#include "machine/Canvas.h"

namespace wizard {

namespace {

// As the canvas wants them: red in the lowest byte.
constexpr std::int32_t SheetColour = 0x404040;
constexpr std::int32_t ReachColour = 0xC0C0C0;
constexpr std::int32_t FormColour = 0xB08040;
constexpr std::int32_t TextColour = 0x909090;
constexpr std::int32_t WrongColour = 0x2020D0;

/// White around the sketch.
constexpr double Rim = 120;
/// Between the lines of a field that is filled: one dot of a screen at 300 %.
constexpr double LineGap = 5;
/// A field that is off is shown at least this large, with a ring around it.
constexpr double LeastSide = 60;
constexpr double RingGap = 45;

constexpr const char* SketchedDigits = "1234567890";
constexpr double TryPoints = 20;
constexpr double LargestPoints = 36;

/// Draws what lies on the sheet at the scale of the picture.
class Sketcher {
  public:
    Sketcher(machine::Canvas& canvas, const precheck::SheetPlace& all, double width, double height)
        : canvas_(canvas), all_(all), scale_(std::min((width - 2 * Rim) / (all.Right - all.Left),
                                                      (height - 2 * Rim) / (all.Bottom - all.Top))),
          left_((width - scale_ * (all.Right - all.Left)) / 2),
          top_((height - scale_ * (all.Bottom - all.Top)) / 2) {}

    void Outline(const precheck::SheetPlace& place, std::int32_t colour) const { Box(Drawn(place), colour); }

    void Stroke(const precheck::SheetPlace& place) const {
        const precheck::SheetPlace drawn = Drawn(place);
        const double middle = (drawn.Top + drawn.Bottom) / 2;
        canvas_.DrawLine(drawn.Left, middle, drawn.Right, middle, TextColour);
    }

    void Fill(const precheck::SheetPlace& place) const {
        precheck::SheetPlace drawn = Drawn(place);
        drawn.Right = std::max(drawn.Right, drawn.Left + LeastSide);
        drawn.Bottom = std::max(drawn.Bottom, drawn.Top + LeastSide);
        for (int line = 0; drawn.Top + line * LineGap <= drawn.Bottom; ++line) {
            const double y = drawn.Top + line * LineGap;
            canvas_.DrawLine(drawn.Left, y, drawn.Right, y, WrongColour);
        }
        Box({drawn.Left - RingGap, drawn.Top - RingGap, drawn.Right + RingGap, drawn.Bottom + RingGap},
            WrongColour);
    }

  private:
    void Box(const precheck::SheetPlace& drawn, std::int32_t colour) const {
        canvas_.DrawLine(drawn.Left, drawn.Top, drawn.Right, drawn.Top, colour);
        canvas_.DrawLine(drawn.Right, drawn.Top, drawn.Right, drawn.Bottom, colour);
        canvas_.DrawLine(drawn.Right, drawn.Bottom, drawn.Left, drawn.Bottom, colour);
        canvas_.DrawLine(drawn.Left, drawn.Bottom, drawn.Left, drawn.Top, colour);
    }

    precheck::SheetPlace Drawn(const precheck::SheetPlace& place) const {
        return {left_ + scale_ * (place.Left - all_.Left), top_ + scale_ * (place.Top - all_.Top),
                left_ + scale_ * (place.Right - all_.Left), top_ + scale_ * (place.Bottom - all_.Top)};
    }

    machine::Canvas& canvas_;
    precheck::SheetPlace all_;
    double scale_;
    double left_;
    double top_;
};

/// The sheet, and what hangs over its edges.
precheck::SheetPlace Extent(const precheck::SheetSketch& sketch) {
    precheck::SheetPlace all{0, 0, sketch.Sheet.Width, sketch.Sheet.Height};
    for (const auto* places : {&sketch.Forms, &sketch.Wrong}) {
        for (const precheck::SheetPlace& place : *places) {
            all.Left = std::min(all.Left, place.Left);
            all.Top = std::min(all.Top, place.Top);
            all.Right = std::max(all.Right, place.Right);
            all.Bottom = std::max(all.Bottom, place.Bottom);
        }
    }
    return all;
}

} // namespace

std::shared_ptr<const machine::PageBitmap>
DrawSheet(machine::Bitmaps& bitmaps, const precheck::SheetSketch& sketch, double width, double height) {
    const auto page = bitmaps.CreatePage(width, height);
    const machine::SheetArea& sheet = sketch.Sheet;
    const Sketcher sketcher(page->Drawing(), Extent(sketch), width, height);
    sketcher.Outline({sheet.Left, sheet.Top, sheet.Right, sheet.Bottom}, ReachColour);
    sketcher.Outline({0, 0, sheet.Width, sheet.Height}, SheetColour);
    for (const precheck::SheetPlace& form : sketch.Forms) {
        sketcher.Outline(form, FormColour);
    }
    for (const precheck::SheetPlace& text : sketch.Texts) {
        sketcher.Stroke(text);
    }
    for (const precheck::SheetPlace& wrong : sketch.Wrong) {
        sketcher.Fill(wrong);
    }
    return page->Image();
}

std::shared_ptr<const machine::PageBitmap> DrawDigits(machine::Bitmaps& bitmaps, const std::string& fontName,
                                                      double width, double height) {
    const auto page = bitmaps.CreatePage(width, height);
    machine::Canvas& canvas = page->Drawing();
    machine::FontSpec font{.Name = fontName, .Size = TryPoints, .Bold = false};
    const machine::TextSize tried = canvas.MeasureText(SketchedDigits, font);
    if (tried.Width > 0 && tried.Height > 0) {
        const double most = std::min((width - 2 * Rim) / tried.Width, height / tried.Height);
        font.Size = std::min(TryPoints * most, LargestPoints);
    }
    const machine::TextSize size = canvas.MeasureText(SketchedDigits, font);
    canvas.DrawText((width - size.Width) / 2, (height - size.Height) / 2, SketchedDigits, font);
    return page->Image();
}

} // namespace wizard
