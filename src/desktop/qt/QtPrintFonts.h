#pragma once

#include "desktop/qt/GlyphTables.h"
#include "machine/Fonts.h"

namespace desktop::qt {

/// The fonts of the desktop as QtCanvas draws them.
class QtPrintFonts final : public machine::Fonts {
  public:
    std::string FamilyFor(const std::string& name) override;
    bool HasLetter(const machine::FontSpec& font, char32_t letter) override;
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    machine::InkBox InkOf(char32_t letter, const machine::FontSpec& font) override;

  private:
    GlyphTables tables_;
};

} // namespace desktop::qt
