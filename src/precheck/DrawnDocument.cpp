#include "precheck/DrawnDocument.h"

#include <algorithm>

namespace precheck {

void DrawnDocument::BeginField(const composition::FormField& field, std::string_view whole) {
    // Names are constants of the layouts: the same one has the same address.
    const auto known = std::find_if(Fields.begin(), Fields.end(), [&](const composition::FormField& one) {
        return one.Name.data() == field.Name.data() && one.Block == field.Block;
    });
    field_ = static_cast<std::size_t>(known - Fields.begin());
    if (known == Fields.end()) {
        Fields.push_back(field);
    }
    whole_ = whole;
}

machine::TextSize DrawnDocument::MeasureText(std::string_view text, const machine::FontSpec& font) {
    return measures_.Measure(text, font);
}

void DrawnDocument::DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) {
    const TextInk ink = measures_.InkOf(text, font);
    if (ink.HasInk) {
        const double left = sheet_.Left + x;
        const double top = sheet_.Top + y;
        const machine::InkBox& box = ink.Box;
        Texts.push_back(
            {page_, place_, field_, {left + box.Left, top + box.Top, left + box.Right, top + box.Bottom}});
    }
    if (text.size() < whole_.size()) {
        NoteCut(text);
    }
    if (ink.LacksLetters) {
        NoteMissing(text, font);
    }
}

void DrawnDocument::NoteCut(std::string_view text) {
    const bool known =
        std::any_of(Cut.begin(), Cut.end(), [&](const CutText& cut) { return cut.Field == field_; });
    if (!known) {
        Cut.push_back({field_, std::string(whole_), std::string(text)});
    }
}

void DrawnDocument::NoteMissing(std::string_view text, const machine::FontSpec& font) {
    auto known = std::find_if(Missing.begin(), Missing.end(), [&](const MissingLetters& missing) {
        return missing.Field == field_ && missing.Font == font.Name;
    });
    if (known == Missing.end()) {
        known = Missing.insert(Missing.end(), {field_, font.Name, {}});
    }
    for (const char32_t letter : measures_.MissingLetters(text, font)) {
        if (known->Letters.find(letter) == std::u32string::npos) {
            known->Letters += letter;
        }
    }
}

} // namespace precheck
