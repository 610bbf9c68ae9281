#include "machine/RecordedPage.h"

#include <exception>
#include <new>

#include "base/RuntimeError.h"

namespace machine {

std::shared_ptr<const PageBitmap> RecordedPage::Image() {
    if (state_ == State::Lost) {
        throw base::OutOfMemory();
    }
    try {
        return PictureOf(record_);
    } catch (const std::bad_alloc&) {
        throw base::OutOfMemory();
    }
}

void RecordedPage::Cls() {
    record_.Clear();
    state_ = State::Whole;
}

void RecordedPage::Discard() {
    record_.Clear();
    state_ = State::Discarded;
}

TextSize RecordedPage::MeasureText(std::string_view text, const FontSpec& font) {
    return Measures().MeasureText(text, font);
}

template <class Call>
void RecordedPage::Record(Call call) {
    if (state_ != State::Whole) {
        return;
    }
    try {
        call();
    } catch (const std::exception&) { // no memory, or more than a text can hold
        record_.Clear();
        state_ = State::Lost;
    }
}

void RecordedPage::DrawText(double x, double y, std::string_view text, const FontSpec& font) {
    Record([&] { record_.AddText(x, y, text, font); });
}

void RecordedPage::DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) {
    Record([&] { record_.AddLine(x1, y1, x2, y2, colour); });
}

} // namespace machine
