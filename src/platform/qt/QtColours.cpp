#include "platform/qt/QtColours.h"

#include <array>

namespace platform::qt {

namespace {

struct SystemColour {
    forms::Colour Number;
    QPalette::ColorGroup Group;
    QPalette::ColorRole Role;
};

constexpr std::array<SystemColour, 8> SystemColours{{
    {forms::colour::WindowBackground, QPalette::Active, QPalette::Base},
    {forms::colour::WindowText, QPalette::Active, QPalette::WindowText},
    {forms::colour::Highlight, QPalette::Active, QPalette::Highlight},
    {forms::colour::ButtonFace, QPalette::Active, QPalette::Window},
    {forms::colour::ButtonShadow, QPalette::Active, QPalette::Mid},
    {forms::colour::GrayText, QPalette::Active, QPalette::PlaceholderText},
    {forms::colour::ButtonText, QPalette::Active, QPalette::ButtonText},
    {forms::colour::DarkShadow, QPalette::Active, QPalette::Dark},
}};

constexpr forms::Colour SystemBit = 0x80000000;

} // namespace

QColor ToQColor(forms::Colour colour, const QPalette& palette) {
    if (colour == forms::colour::Transparent) {
        return Qt::transparent;
    }
    if ((colour & SystemBit) == 0) {
        return QColor::fromRgb(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                               static_cast<int>((colour >> 16) & 0xFF));
    }
    for (const SystemColour& system : SystemColours) {
        if (system.Number == colour) {
            return palette.color(system.Group, system.Role);
        }
    }
    return palette.color(QPalette::WindowText);
}

} // namespace platform::qt
