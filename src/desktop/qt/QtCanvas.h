#pragma once

#include <vector>

#include <QPointF>

#include "desktop/qt/GlyphTables.h"
#include "desktop/qt/PageDevice.h"
#include "machine/Canvas.h"

namespace desktop::qt {

/// Drawing by Qt on any device. A text stands with the top of its line (the font's Windows ascent above the
/// base line) at the cursor, and its measured width is the printed one.
class QtCanvas : public machine::Canvas {
  public:
    explicit QtCanvas(PageDevice& device);

    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override;
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override;
    void NewPage() override;
    void EndDocument() override;

  private:
    void DrawRun(const QRawFont& face);

    PageDevice& device_;
    GlyphTables tables_;

    // Room for one text, kept from call to call.
    std::vector<quint32> glyphs_;
    std::vector<QPointF> places_;
};

} // namespace desktop::qt
