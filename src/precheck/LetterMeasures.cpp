#include "precheck/LetterMeasures.h"

#include <algorithm>
#include <string>

#include "base/Text.h"

namespace precheck {

namespace text = base::text;

namespace {

constexpr char32_t Delete = 0x7F;
constexpr char32_t HardBlank = 0xA0;

/// Blanks and control characters leave nothing on the paper that a font could lack.
bool IsPrinting(char32_t code) {
    return code > U' ' && (code < Delete || code > HardBlank);
}

std::string BareName(std::string_view family) {
    std::string bare = text::Lower(family);
    std::erase_if(bare, [](char c) { return c == ' ' || c == '-'; });
    return bare;
}

} // namespace

bool IsReplaced(machine::Fonts& fonts, const std::string& name) {
    return BareName(fonts.FamilyFor(name)) != BareName(name);
}

machine::TextSize LetterMeasures::Measure(std::string_view tekst, const machine::FontSpec& spec) {
    Font& font = FontOf(spec);
    double width = 0;
    ForEachLetter(tekst, font, [&](char32_t, const Letter& letter) { width += letter.Advance; });
    return {width, font.Height};
}

TextInk LetterMeasures::InkOf(std::string_view tekst, const machine::FontSpec& spec) {
    TextInk ink;
    machine::InkBox& all = ink.Box;
    double at = 0;
    ForEachLetter(tekst, FontOf(spec), [&](char32_t, const Letter& letter) {
        if (letter.HasInk) {
            const machine::InkBox one = {at + letter.Ink.Left, letter.Ink.Top, at + letter.Ink.Right,
                                         letter.Ink.Bottom};
            all = ink.HasInk
                      ? machine::InkBox{std::min(all.Left, one.Left), std::min(all.Top, one.Top),
                                        std::max(all.Right, one.Right), std::max(all.Bottom, one.Bottom)}
                      : one;
            ink.HasInk = true;
        }
        ink.LacksLetters = ink.LacksLetters || letter.IsMissing;
        at += letter.Advance;
    });
    return ink;
}

std::u32string LetterMeasures::MissingLetters(std::string_view tekst, const machine::FontSpec& spec) {
    std::u32string missing;
    ForEachLetter(tekst, FontOf(spec), [&](char32_t code, const Letter& letter) {
        if (letter.IsMissing && missing.find(code) == std::u32string::npos) {
            missing += code;
        }
    });
    return missing;
}

LetterMeasures::Font& LetterMeasures::FontOf(const machine::FontSpec& spec) {
    if (last_ != nullptr && last_->Spec == spec) {
        return *last_;
    }
    const auto known =
        std::find_if(measured_.begin(), measured_.end(), [&](const Font& font) { return font.Spec == spec; });
    if (known != measured_.end()) {
        last_ = &*known;
        return *last_;
    }
    last_ = &measured_.emplace_back();
    last_->Spec = spec;
    last_->Height = fonts_.MeasureText("X", spec).Height;
    return *last_;
}

const LetterMeasures::Letter& LetterMeasures::LetterOf(Font& font, char32_t code) {
    if (code < font.Plain.size()) {
        if (!font.Known[code]) {
            font.Plain[code] = Ask(font, code);
            font.Known[code] = true;
        }
        return font.Plain[code];
    }
    const auto known = font.Others.find(code);
    return known != font.Others.end() ? known->second
                                      : font.Others.emplace(code, Ask(font, code)).first->second;
}

LetterMeasures::Letter LetterMeasures::Ask(const Font& font, char32_t code) {
    const machine::InkBox ink = fonts_.InkOf(code, font.Spec);
    return {.Advance = fonts_.MeasureText(text::Encode(code), font.Spec).Width,
            .Ink = ink,
            .HasInk = ink.Right > ink.Left && ink.Bottom > ink.Top,
            .IsMissing = IsPrinting(code) && !fonts_.HasLetter(font.Spec, code)};
}

template <class Each>
void LetterMeasures::ForEachLetter(std::string_view rest, Font& font, Each each) {
    while (!rest.empty()) {
        const text::Decoded first = text::DecodeFirst(rest);
        each(first.Code, LetterOf(font, first.Code));
        rest.remove_prefix(first.Bytes);
    }
}

} // namespace precheck
