#pragma once

#include <string>
#include <vector>

#include "desktop/windows/GdiFonts.h"
#include "desktop/windows/PageDevice.h"
#include "machine/Canvas.h"

namespace desktop::windows {

/// Drawing by GDI on any device. A text stands with the top of its line at the cursor, and each of its
/// letters within half a dot of its place, however long the text is: the measured width is the printed one.
class GdiCanvas final : public machine::Canvas {
  public:
    explicit GdiCanvas(PageDevice& device) : device_(device) {}

    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override;
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override;
    void NewPage() override { device_.NewPage(); }
    void EndDocument() override { device_.EndDocument(); }

  private:
    /// Runs a step with this font. The device is told if there is none to be had.
    template <class Step>
    void WithFont(const machine::FontSpec& font, Step step);
    /// The letters of `text` with their advances in whole dots, which keep each letter at its rounded place.
    void LayOut(std::string_view text, GdiFont& font, double start, double dotsPerTwip);
    void DrawRun(HDC page, int x, int y);

    PageDevice& device_;
    GdiFonts fonts_;

    // Room for one text, kept from call to call.
    std::wstring run_;
    std::vector<INT> advances_;
};

} // namespace desktop::windows
