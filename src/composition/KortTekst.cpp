#include "composition/KortTekst.h"

#include "base/Text.h"
#include "composition/PrintSurface.h"

namespace composition {

namespace text = base::text;

namespace {
constexpr std::size_t NeverCut = 2; // characters
}

std::string_view KortTekst(PrintSurface& surface, std::string_view tekst, std::int32_t x1, std::int32_t x2) {
    const double room = static_cast<double>(x2) - x1;
    const auto fits = [&](std::string_view part) { return surface.TextWidth(part) <= room; };
    std::size_t longest = text::Length(tekst);
    if (longest <= NeverCut || fits(tekst)) {
        return tekst;
    }

    // Cutting characters off one by one ends at the longest part that fits. A longer part is never narrower,
    // so halving finds the same place, also in a text of a size that nobody would print.
    std::size_t shortest = NeverCut;
    --longest;
    while (shortest < longest) {
        const std::size_t half = shortest + (longest - shortest + 1) / 2;
        if (fits(text::Left(tekst, half))) {
            shortest = half;
        } else {
            longest = half - 1;
        }
    }
    return text::Left(tekst, shortest);
}

} // namespace composition
