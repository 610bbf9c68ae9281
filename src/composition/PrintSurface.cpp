#include "composition/PrintSurface.h"

#include "base/RuntimeError.h"
#include "state/AppState.h"

namespace composition {

namespace {
constexpr double LargestFontPoints = 32767;
constexpr std::string_view AnyLetter = "X";
} // namespace

void PrintSurface::SetFontSize(double points) {
    if (points > 0 && points <= LargestFontPoints) {
        state_.Font.Size = points;
    }
}

void PrintSurface::Print(std::string_view text) {
    if (text.empty()) {
        return;
    }
    Page().DrawText(state_.CurrentX, state_.CurrentY, text, state_.Font);
    state_.CurrentX += TextWidth(text);
}

void PrintSurface::PrintLine(std::string_view text) {
    if (!text.empty()) {
        Page().DrawText(state_.CurrentX, state_.CurrentY, text, state_.Font);
    }
    state_.CurrentY += TextHeight(text.empty() ? AnyLetter : text);
    state_.CurrentX = 0;
}

void PrintSurface::Line(double x1, double y1, double x2, double y2, std::int32_t colour) {
    Page().DrawLine(x1, y1, x2, y2, colour);
}

void PrintSurface::Newpage() {
    Page().NewPage();
    MoveToTopLeft();
}

void PrintSurface::EndDoc() {
    MoveToTopLeft(); // also where the end fails: whatever is drawn next belongs to another document
    Page().EndDocument();
}

void PrintSurface::SetPaperSize(std::int16_t) {
    throw base::InvalidPropertyValue();
}

void PrintSurface::MoveToTopLeft() {
    state_.CurrentX = 0;
    state_.CurrentY = 0;
}

PrintSurface& SurfaceOf(const state::AppState& state) {
    if (state.Surface == nullptr) {
        throw base::NoObject();
    }
    return *state.Surface;
}

} // namespace composition
