#include "memory/MemoryFonts.h"

#include "base/Text.h"

namespace memory {

namespace text = base::text;

namespace {

constexpr double LineHeightPerPoint = 24;

constexpr double InkLeft = 0.1;
constexpr double InkRight = 0.9;
constexpr double SlimInkLeft = 0.3;
constexpr double SlimInkRight = 0.7;
constexpr double InkTop = 0.25;
constexpr double InkBottom = 0.75;

bool HasCode(std::string_view letters, char32_t code) {
    while (!letters.empty()) {
        const text::Decoded letter = text::DecodeFirst(letters);
        if (letter.Code == code) {
            return true;
        }
        letters.remove_prefix(letter.Bytes);
    }
    return false;
}

double WidthPerPoint(const MemoryFont& measures, bool bold, char32_t code) {
    const double width = bold ? measures.WidthPerPoint * 11 / 10 : measures.WidthPerPoint;
    return HasCode(measures.WideLetters, code) ? 2 * width : width;
}

} // namespace

const MemoryFont& MemoryFonts::FontOf(const std::string& name) const {
    static const MemoryFont plain;
    const auto found = fonts_.find(name);
    return found == fonts_.end() ? plain : found->second;
}

std::string MemoryFonts::FamilyFor(const std::string& name) {
    const std::string& instead = FontOf(name).PrintsInstead;
    return instead.empty() ? name : instead;
}

bool MemoryFonts::HasLetter(const machine::FontSpec& font, char32_t letter) {
    return !HasCode(FontOf(font.Name).LacksLetters, letter);
}

machine::TextSize MemoryFonts::MeasureText(std::string_view text, const machine::FontSpec& font) {
    const MemoryFont& measures = FontOf(font.Name);
    double perPoint = 0;
    while (!text.empty()) {
        const text::Decoded letter = text::DecodeFirst(text);
        perPoint += WidthPerPoint(measures, font.Bold, letter.Code);
        text.remove_prefix(letter.Bytes);
    }
    return {perPoint * font.Size, LineHeightPerPoint * font.Size};
}

machine::InkBox MemoryFonts::InkOf(char32_t letter, const machine::FontSpec& font) {
    if (letter == U' ') {
        return {};
    }
    const MemoryFont& measures = FontOf(font.Name);
    const bool slim = HasCode(measures.SlimLetters, letter);
    const double width = WidthPerPoint(measures, font.Bold, letter) * font.Size;
    const double height = LineHeightPerPoint * font.Size;
    return {(slim ? SlimInkLeft : InkLeft) * width, InkTop * height, (slim ? SlimInkRight : InkRight) * width,
            InkBottom * height};
}

} // namespace memory
