#pragma once

#include "desktop/windows/GdiFonts.h"
#include "machine/Fonts.h"

namespace desktop::windows {

/// The fonts of the machine as GdiCanvas draws them on a printer.
class WinPrintFonts final : public machine::Fonts {
  public:
    std::string FamilyFor(const std::string& name) override;
    bool HasLetter(const machine::FontSpec& font, char32_t letter) override;
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
    machine::InkBox InkOf(char32_t letter, const machine::FontSpec& font) override;

  private:
    GdiFont& Of(const machine::FontSpec& font) { return fonts_.Of(font, DEFAULT_QUALITY); }

    GdiFonts fonts_;
};

} // namespace desktop::windows
