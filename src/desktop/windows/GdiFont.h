#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/Text.h"
#include "desktop/windows/GdiObjects.h"
#include "machine/Canvas.h"
#include "machine/Fonts.h"

namespace desktop::windows {

/// A font as a table from characters to their design widths, so that a text is as wide on every printer and
/// screen as its designer made it: a font at the size of a device rounds each letter to whole dots. All
/// lengths are twips.
class GdiFont {
  public:
    GdiFont(const machine::FontSpec& font, BYTE quality);

    const machine::FontSpec& Spec() const { return spec_; }

    /// From the top of a text line to its base line, and the height of the line.
    double Ascent() const { return ascent_; }
    double LineHeight() const { return lineHeight_; }

    /// A character as UTF-16 and the way to the next one. A control character has no units and no width.
    struct Glyph {
        std::array<wchar_t, 2> Units{};
        std::size_t Count = 0;
        double Advance = 0;
    };
    const Glyph& Of(char32_t code) {
        return code < table_.size() && known_[code] ? table_[code] : Find(code);
    }

    /// Width of a UTF-8 text.
    double Width(std::string_view text);

    /// What is seen of a character.
    struct Picture {
        bool IsOwn = true; ///< the font has it, and none of another font's is put in its place
        machine::InkBox Ink{};
    };
    /// A control character is not drawn and needs none.
    const Picture& PictureOf(char32_t code);

    /// The family of the file that the font comes from.
    std::string Family() const;

    /// The font for drawing at this resolution down the page. Kept until another one is asked for.
    HFONT At(int dotsPerInch);

  private:
    const Glyph& Find(char32_t code);
    Glyph Make(char32_t code) const;
    Picture LookAt(char32_t code);

    machine::FontSpec spec_;
    BYTE quality_;
    Font design_; ///< as high as the font's own grid, so that it measures in the designer's units
    double twipsPerUnit_ = 0;
    double ascent_ = 0;
    double lineHeight_ = 0;
    std::array<Glyph, 256> table_{};
    std::array<bool, 256> known_{};
    std::unordered_map<char32_t, Glyph> others_;
    std::unordered_map<char32_t, Picture> pictures_;

    Font device_;
    int deviceHeight_ = 0;
};

} // namespace desktop::windows
