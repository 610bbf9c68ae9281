#pragma once

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "machine/Canvas.h"
#include "machine/Fonts.h"

namespace precheck {

/// Whether another family prints where a font is asked for. Blanks and hyphens make no other one: "OCR-B" is
/// "OCR B".
bool IsReplaced(machine::Fonts& fonts, const std::string& name);

/// What a text leaves on the paper.
struct TextInk {
    machine::InkBox Box; ///< in twips from the text's top left
    bool HasInk = false;
    bool LacksLetters = false; ///< another font's picture stands for one of them
};

/// The fonts of a machine, asked once for each letter of each font: a batch has some hundred different
/// letters and a hundred thousand in all.
class LetterMeasures {
  public:
    explicit LetterMeasures(machine::Fonts& fonts) : fonts_(fonts) {}

    machine::TextSize Measure(std::string_view text, const machine::FontSpec& font);

    TextInk InkOf(std::string_view text, const machine::FontSpec& font);

    /// The letters of a text that the font lacks, each once.
    std::u32string MissingLetters(std::string_view text, const machine::FontSpec& font);

  private:
    struct Letter {
        double Advance = 0;
        machine::InkBox Ink;
        bool HasInk = false;
        bool IsMissing = false;
    };
    struct Font {
        machine::FontSpec Spec;
        double Height = 0;
        std::array<Letter, 128> Plain = {}; ///< by code
        std::array<bool, 128> Known = {};
        std::unordered_map<char32_t, Letter> Others;
    };

    Font& FontOf(const machine::FontSpec& spec);
    const Letter& LetterOf(Font& font, char32_t code);
    Letter Ask(const Font& font, char32_t code);

    template <class Each>
    void ForEachLetter(std::string_view text, Font& font, Each each);

    machine::Fonts& fonts_;
    std::deque<Font> measured_;
    Font* last_ = nullptr;
};

} // namespace precheck
