#include "desktop/windows/GdiCanvas.h"

#include <algorithm>
#include <cmath>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Units.h"

namespace desktop::windows {

namespace {

using base::TwipsPerInch;

/// Nothing is drawn further away than this, in dots: beyond it GDI's own arithmetic runs over.
constexpr double Farthest = 1'000'000;

/// UTF-16 units that go to GDI at a time, which takes 8192 at most. Even, so that no pair is cut.
constexpr std::size_t LongestRun = 4096;

/// A line is one dot wide, and as wide on a finer printer as on this one.
constexpr int LineDotsPerInch = 600;

bool IsNear(double at) {
    return std::abs(at) < Farthest; // false for a value that is no number
}

int Near(double at) {
    return std::isnan(at) ? 0 : static_cast<int>(std::lround(std::clamp(at, -Farthest, Farthest)));
}

COLORREF ColourOf(std::int32_t colour) {
    return static_cast<COLORREF>(colour) & 0xFFFFFFU;
}

int LineWidth(Resolution dots) {
    return std::max(1, (std::min(dots.X, dots.Y) + LineDotsPerInch / 2) / LineDotsPerInch);
}

} // namespace

// A text that cannot be measured stands at the wrong place, or not at all: the page is spoilt.
machine::TextSize GdiCanvas::MeasureText(std::string_view text, const machine::FontSpec& font) {
    machine::TextSize size;
    WithFont(font, [&](GdiFont& measured) { size = {measured.Width(text), measured.LineHeight()}; });
    return size;
}

template <class Step>
void GdiCanvas::WithFont(const machine::FontSpec& font, Step step) {
    try {
        step(fonts_.Of(font, device_.FontQuality()));
    } catch (const base::RuntimeError&) { // the machine makes no more fonts
        device_.DrawingFailed();
        throw;
    }
}

void GdiCanvas::LayOut(std::string_view text, GdiFont& font, double start, double dotsPerTwip) {
    run_.clear();
    advances_.clear();
    double at = start;
    int place = Near(at);
    while (!text.empty() && IsNear(at)) {
        const base::text::Decoded next = base::text::DecodeFirst(text);
        text.remove_prefix(next.Bytes);
        const GdiFont::Glyph& glyph = font.Of(next.Code);
        if (glyph.Count == 0) {
            continue;
        }
        at += glyph.Advance * dotsPerTwip;
        const int nextPlace = Near(at);
        run_.append(glyph.Units.data(), glyph.Count);
        advances_.push_back(nextPlace - place);
        advances_.resize(run_.size()); // the second half of a pair takes no room
        place = nextPlace;
    }
}

void GdiCanvas::DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) {
    if (text.empty()) {
        return;
    }
    const HDC page = device_.PageContext();
    if (page == nullptr) {
        return;
    }
    const Resolution dots = device_.DotsPerInch();
    const double left = x * dots.X / TwipsPerInch;
    double base = 0;
    HFONT letters = nullptr;
    WithFont(font, [&](GdiFont& drawn) {
        base = (y + drawn.Ascent()) * dots.Y / TwipsPerInch;
        LayOut(text, drawn, left, dots.X / TwipsPerInch);
        letters = drawn.At(dots.Y);
    });
    if (!IsNear(left) || !IsNear(base)) {
        return;
    }
    const Selected selected(page, letters);
    if (!selected) {
        device_.DrawingFailed();
        return;
    }
    DrawRun(page, Near(left), Near(base));
}

void GdiCanvas::DrawRun(HDC page, int x, int y) {
    ::SetTextAlign(page, TA_LEFT | TA_BASELINE | TA_NOUPDATECP);
    ::SetBkMode(page, TRANSPARENT);
    for (std::size_t at = 0; at < run_.size();) {
        std::size_t count = std::min(LongestRun, run_.size() - at);
        if (at + count < run_.size() && IS_LOW_SURROGATE(run_[at + count])) {
            --count;
        }
        ::SetLastError(ERROR_SUCCESS); // what is told later is the reason of this call
        if (::ExtTextOutW(page, x, y, 0, nullptr, &run_[at], static_cast<UINT>(count), &advances_[at]) ==
            FALSE) {
            device_.DrawingFailed();
            return;
        }
        for (const std::size_t end = at + count; at < end; ++at) {
            x += advances_[at];
        }
    }
}

void GdiCanvas::DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) {
    const HDC page = device_.PageContext();
    if (page == nullptr) {
        return;
    }
    const Resolution dots = device_.DotsPerInch();
    const double across = dots.X / TwipsPerInch;
    const double down = dots.Y / TwipsPerInch;
    const Pen pen(::CreatePen(PS_SOLID, LineWidth(dots), ColourOf(colour)));
    const Selected selected(page, pen.Get());
    const POINT ends[] = {{Near(x1 * across), Near(y1 * down)}, {Near(x2 * across), Near(y2 * down)}};
    ::SetLastError(ERROR_SUCCESS);
    if (!pen || !selected || ::Polyline(page, ends, static_cast<int>(std::size(ends))) == FALSE) {
        device_.DrawingFailed();
    }
}

} // namespace desktop::windows
