#include "machine/PageRecord.h"

#include <algorithm>

namespace machine {

void PageRecord::AddText(double x, double y, std::string_view text, const FontSpec& font) {
    if (text.empty()) {
        return;
    }
    const std::size_t number = NumberOf(font);
    characters_.append(text);
    texts_.push_back({x, y, characters_.size(), number});
}

void PageRecord::AddLine(double x1, double y1, double x2, double y2, std::int32_t colour) {
    lines_.push_back({x1, y1, x2, y2, texts_.size(), colour});
}

std::size_t PageRecord::NumberOf(const FontSpec& font) {
    const auto found = std::find(fonts_.begin(), fonts_.end(), font);
    const auto number = static_cast<std::size_t>(found - fonts_.begin());
    if (found == fonts_.end()) {
        fonts_.push_back(font);
    }
    return number;
}

void PageRecord::Clear() {
    texts_.clear();
    lines_.clear();
    characters_.clear();
    fonts_.clear();
}

void PageRecord::DrawOn(Canvas& canvas) const {
    const std::string_view characters = characters_;
    auto line = lines_.begin();
    std::size_t begin = 0;
    for (std::size_t number = 0; number <= texts_.size(); ++number) {
        for (; line != lines_.end() && line->TextsBefore == number; ++line) {
            canvas.DrawLine(line->X1, line->Y1, line->X2, line->Y2, line->Colour);
        }
        if (number < texts_.size()) {
            const Text& text = texts_[number];
            canvas.DrawText(text.X, text.Y, characters.substr(begin, text.End - begin), fonts_[text.Font]);
            begin = text.End;
        }
    }
}

} // namespace machine
