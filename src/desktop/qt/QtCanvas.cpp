#include "desktop/qt/QtCanvas.h"

#include <algorithm>
#include <cmath>

#include <QColor>
#include <QLineF>
#include <QPainter>
#include <QPen>

#include "base/Text.h"
#include "desktop/qt/PageUnits.h"

namespace desktop::qt {

namespace {

/// Nothing is drawn further away than this, in units: 50 metres, what Qt's coordinates of a glyph can hold.
constexpr double Farthest = 14'000'000;

bool IsNear(double at) {
    return std::abs(at) < Farthest; // false for a value that is no number
}

double Near(double at) {
    return std::isnan(at) ? 0 : std::clamp(at, -Farthest, Farthest);
}

QColor ColourOf(std::int32_t colour) {
    const auto bits = static_cast<std::uint32_t>(colour);
    return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                  static_cast<int>(bits >> 16 & 0xFF));
}

/// Of the blanks at a text's end, with which some are filled to their length, the first is enough: to draw
/// them all would make a fifth of a form.
std::string_view WithOneBlankAtItsEnd(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 1 : last + 2);
}

} // namespace

QtCanvas::QtCanvas(PageDevice& device) : device_(device) {}

machine::TextSize QtCanvas::MeasureText(std::string_view text, const machine::FontSpec& font) {
    GlyphTable& table = tables_.Of(font);
    return {table.Width(text) / UnitsPerTwip, table.LineHeight() / UnitsPerTwip};
}

void QtCanvas::DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) {
    if (text.empty()) {
        return;
    }
    if (!device_.Begin()) {
        return;
    }
    GlyphTable& table = tables_.Of(font);
    const QPointF start(x * UnitsPerTwip, y * UnitsPerTwip + table.Ascent());
    if (!IsNear(start.x()) || !IsNear(start.y())) {
        return;
    }
    text = WithOneBlankAtItsEnd(text);
    glyphs_.clear(); // of a text that broke off
    places_.clear();
    std::uint32_t face = 0;
    double across = start.x();
    for (std::size_t at = 0; at < text.size() && IsNear(across);) {
        const base::text::Decoded next = base::text::DecodeFirst(text.substr(at));
        at += next.Bytes;
        const GlyphTable::Glyph& glyph = table.Of(next.Code);
        if (!glyph.Visible) {
            continue;
        }
        if (glyph.Face != face) {
            DrawRun(table.Face(face));
            face = glyph.Face;
        }
        glyphs_.push_back(glyph.Index);
        places_.emplace_back(across, start.y());
        across += glyph.Advance;
    }
    DrawRun(table.Face(face));
}

void QtCanvas::DrawRun(const QRawFont& face) {
    if (!glyphs_.empty()) {
        device_.DrawGlyphs(face, glyphs_, places_);
        glyphs_.clear();
        places_.clear();
    }
}

void QtCanvas::DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) {
    QPainter* painter = device_.Painter();
    if (painter == nullptr) {
        return;
    }
    const QPen textPen = painter->pen();
    painter->setPen(QPen(ColourOf(colour), device_.LineWidth()));
    painter->drawLine(QLineF(Near(x1 * UnitsPerTwip), Near(y1 * UnitsPerTwip), Near(x2 * UnitsPerTwip),
                             Near(y2 * UnitsPerTwip)));
    painter->setPen(textPen);
}

void QtCanvas::NewPage() {
    device_.NewPage();
}

void QtCanvas::EndDocument() {
    device_.EndDocument();
}

} // namespace desktop::qt
