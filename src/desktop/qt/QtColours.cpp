#include "desktop/qt/QtColours.h"

#include <array>

#include <QApplication>
#include <QStyle>

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

// The style makes its outlines from the window's colour, darker by this much (in percent).
constexpr int OutlineDarker = 140;
constexpr double ContrastOfOutline = 1.4;

// A theme of high contrast wants its outlines strong; in another one the focus has to stand out of them.
constexpr double ContrastOfStrongThemes = 15;
constexpr double StrongOutline = 3;
constexpr double CalmOutline = 1.4;

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

void Outline(QPalette& palette, const QPalette& theme) {
    const QColor window = theme.color(QPalette::Window);
    const forms::Colour background = FromQColor(window);
    const double contrast = forms::Contrast(FromQColor(window.darker(OutlineDarker)), background);
    if (contrast >= ContrastOfOutline || QApplication::style()->name() != QLatin1String("fusion")) {
        return;
    }
    const double ofTexts = forms::Contrast(FromQColor(theme.color(QPalette::WindowText)), background);
    const forms::Colour seen = forms::Readable(
        background, background, ofTexts >= ContrastOfStrongThemes ? StrongOutline : CalmOutline);
    palette.setColor(QPalette::Window, ToQColor(seen, theme).lighter(OutlineDarker));
}

} // namespace desktop::qt
