#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <QFont>
#include <QRawFont>
#include <QRectF>

#include "machine/Canvas.h"

namespace desktop::qt {

/// A font as a table from characters to glyphs with their design widths, so that a text is measured and
/// placed without laying it out: every character is one glyph, as wide as the font's designer made it. A
/// character that the font lacks comes from the font that Qt puts in its place.
class GlyphTable {
  public:
    /// `sibling`, if there is one, has the same name and boldness at another size.
    explicit GlyphTable(const machine::FontSpec& font, const GlyphTable* sibling = nullptr);

    const machine::FontSpec& Spec() const { return spec_; }

    /// From the top of a text line to its base line, and the height of the line, in units of 1/7200 inch.
    double Ascent() const { return ascent_; }
    double LineHeight() const { return lineHeight_; }

    struct Glyph {
        quint32 Index = 0;
        std::uint32_t Face = 0; ///< index of the raw font that holds it
        double Advance = 0;     ///< units of 1/7200 inch
        bool Visible = false;
    };

    /// The glyph of a code point. Control characters have no width and are not drawn.
    const Glyph& Of(char32_t code) {
        return code < table_.size() && known_[code] ? table_[code] : Find(code);
    }

    const QRawFont& Face(std::uint32_t index) const { return faces_[index]; }

    /// Width of a UTF-8 text in units of 1/7200 inch.
    double Width(std::string_view text);

    /// What the glyph of a code point covers, in units of 1/7200 inch from its place on the base line, y
    /// downward. Empty for a blank.
    const QRectF& InkOf(char32_t code);

  private:
    const Glyph& Find(char32_t code);
    Glyph Make(char32_t code);

    machine::FontSpec spec_;
    QFont font_;
    std::vector<QRawFont> faces_;
    double ascent_ = 0;
    double lineHeight_ = 0;
    std::array<Glyph, 256> table_ = {};
    std::array<bool, 256> known_ = {};
    std::unordered_map<char32_t, Glyph> others_;
    std::unordered_map<char32_t, QRectF> inks_;
};

} // namespace desktop::qt
