#pragma once

#include <map>
#include <string>
#include <string_view>

#include "machine/Fonts.h"

namespace memory {

/// A font that differs from the others of the memory platform.
struct MemoryFont {
    double WidthPerPoint = 10;     ///< of each character, twips; bold ones are a tenth wider
    std::string WideLetters{};     ///< letters of twice that width
    std::string SlimLetters = "1"; ///< letters that cover half of what the others do
    std::string LacksLetters{};    ///< letters that another font's picture stands for
    std::string PrintsInstead{};   ///< the family that replaces the font; empty where it is installed
};

/// The fonts of the memory platform: every name is installed and has the same measures, so positions in a
/// test can be worked out by hand, but for the fonts that a test describes. A letter covers four fifths of
/// its width, a slim one two fifths, and of the line's height the middle half.
class MemoryFonts final : public machine::Fonts {
  public:
    void Describe(const std::string& name, MemoryFont font) { fonts_[name] = std::move(font); }

    std::string FamilyFor(const std::string& name) override;
    bool HasLetter(const machine::FontSpec& font, char32_t letter) override;
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    machine::InkBox InkOf(char32_t letter, const machine::FontSpec& font) override;

  private:
    const MemoryFont& FontOf(const std::string& name) const;

    std::map<std::string, MemoryFont> fonts_;
};

} // namespace memory
