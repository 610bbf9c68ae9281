#include "forms/Contrast.h"

#include <algorithm>
#include <cmath>

namespace forms {

namespace {

constexpr unsigned Bits = 8;
constexpr unsigned Largest = 0xFF;
constexpr int Steps = 32;
constexpr Colour White = colour::Rgb(255, 255, 255);
constexpr Colour Black = colour::Rgb(0, 0, 0);
constexpr double ContrastOfDisabled = 2.2;

double Part(Colour colour, unsigned place) {
    return static_cast<double>((colour >> (Bits * place)) & Largest);
}

// The share of a part of a colour in its light: a screen's levels are no measure of light.
double Light(double level) {
    const double share = level / Largest;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
    return 0.2126 * Light(Part(colour, 0)) + 0.7152 * Light(Part(colour, 1)) +
           0.0722 * Light(Part(colour, 2));
}

} // namespace

double Contrast(Colour one, Colour other) {
    constexpr double flare = 0.05;
    const double a = Luminance(one) + flare;
    const double b = Luminance(other) + flare;
    return std::max(a, b) / std::min(a, b);
}

Colour Mixed(Colour base, Colour added, double share) {
    const auto part = [&](unsigned place) {
        const double level = Part(base, place) * (1 - share) + Part(added, place) * share;
        return static_cast<std::uint32_t>(std::lround(level));
    };
    return colour::Rgb(part(0), part(1), part(2));
}

Colour Readable(Colour ink, Colour background, double least) {
    if (Contrast(ink, background) >= least) {
        return ink;
    }
    // A colour that has to be changed had better have some contrast to spare.
    constexpr double reserve = 1.5;
    const Colour end = Contrast(White, background) > Contrast(Black, background) ? White : Black;
    for (int step = 1; step < Steps; ++step) {
        const Colour mixed = Mixed(ink, end, static_cast<double>(step) / Steps);
        if (Contrast(mixed, background) >= reserve * least) {
            return mixed;
        }
    }
    return end;
}

Colour Faint(Colour ink, Colour background) {
    for (int step = 0; step < Steps; ++step) {
        const Colour mixed = Mixed(ink, background, static_cast<double>(step) / Steps);
        if (Contrast(mixed, background) <= ContrastOfDisabled) {
            return mixed;
        }
    }
    return background;
}

} // namespace forms
