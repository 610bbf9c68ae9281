#include "desktop/qt/QtColours.h"

#include <array>

#include "forms/Contrast.h"

namespace desktop::qt {

namespace {

struct SystemColour {
    forms::Colour Number;
    QPalette::ColorGroup Group;
    QPalette::ColorRole Role;
};

constexpr std::array<SystemColour, 9> SystemColours{{
    {forms::colour::WindowBackground, QPalette::Active, QPalette::Base},
    {forms::colour::WindowText, QPalette::Active, QPalette::WindowText},
    {forms::colour::AppWorkspace, QPalette::Active, QPalette::Mid},
    {forms::colour::Highlight, QPalette::Active, QPalette::Highlight},
    {forms::colour::ButtonFace, QPalette::Active, QPalette::Window},
    {forms::colour::ButtonShadow, QPalette::Active, QPalette::Mid},
    {forms::colour::GrayText, QPalette::Active, QPalette::PlaceholderText},
    {forms::colour::ButtonText, QPalette::Active, QPalette::ButtonText},
    {forms::colour::DarkShadow, QPalette::Active, QPalette::Shadow},
}};

// Rules are drawn in it. On black the theme's own shade is black as well.
QColor Shade(const QPalette& palette) {
    constexpr double contrastOfRules = 1.2;
    const forms::Colour shade = forms::Readable(FromQColor(palette.color(QPalette::Mid)),
                                                FromQColor(palette.color(QPalette::Window)), contrastOfRules);
    return ToQColor(shade, palette);
}

} // namespace

QColor ToQColor(forms::Colour colour, const QPalette& palette) {
    if (colour == forms::colour::Transparent) {
        return Qt::transparent;
    }
    if (!forms::colour::IsSystem(colour)) {
        return QColor::fromRgb(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                               static_cast<int>((colour >> 16) & 0xFF));
    }
    for (const SystemColour& system : SystemColours) {
        if (system.Number == colour) {
            return colour == forms::colour::ButtonShadow ? Shade(palette)
                                                         : palette.color(system.Group, system.Role);
        }
    }
    return palette.color(QPalette::WindowText);
}

forms::Colour FromQColor(const QColor& colour) {
    return forms::colour::Rgb(static_cast<std::uint32_t>(colour.red()),
                              static_cast<std::uint32_t>(colour.green()),
                              static_cast<std::uint32_t>(colour.blue()));
}

} // namespace desktop::qt
