#include "desktop/windows/Scale.h"

#include <algorithm>
#include <cmath>

#include "desktop/windows/DpiFunctions.h"
#include "desktop/windows/GdiObjects.h"
#include "forms/DesignScreen.h"

namespace desktop::windows {

namespace {

using forms::DesignCharacterWidth;
using forms::DesignLineHeight;

constexpr UINT DesignDpi = forms::DesignDotsPerInch;
// Coordinates of windows end here; a form may hold any number of twips.
constexpr double FarthestDot = 32767;

double MeasuredGrowth(UINT dpi) {
    const LOGFONTW wanted = MessageFont(dpi);
    const Font font(::CreateFontIndirectW(&wanted));
    const DeviceContext device(::CreateCompatibleDC(nullptr));
    if (!font || !device) {
        return 1;
    }
    const Selected selected(device.Get(), font.Get());
    constexpr wchar_t sample[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int characters = 52;
    SIZE extent{};
    TEXTMETRICW metrics{};
    ::GetTextExtentPoint32W(device.Get(), sample, characters, &extent);
    ::GetTextMetricsW(device.Get(), &metrics);
    const double density = static_cast<double>(dpi) / DesignDpi;
    const double width = extent.cx / density / characters;
    return std::max({1.0, width / DesignCharacterWidth, metrics.tmHeight / density / DesignLineHeight});
}

} // namespace

Scale::Scale(UINT dpi)
    : dpi_(dpi), growth_(MeasuredGrowth(dpi)), dotsPerInch_(static_cast<int>(std::lround(growth_ * dpi))) {}

int Scale::ToDots(double twips) const {
    return static_cast<int>(
        std::lround(std::clamp(twips * dotsPerInch_ / base::TwipsPerInch, -FarthestDot, FarthestDot)));
}

RECT Scale::ToDots(double left, double top, double width, double height) const {
    return {ToDots(left), ToDots(top), ToDots(left + width), ToDots(top + height)};
}

int Scale::RuleWidth() const {
    return std::max(1, static_cast<int>(dpi_ / DesignDpi));
}

Scale ScreenScale() {
    return Scale(SystemDpi());
}

} // namespace desktop::windows
