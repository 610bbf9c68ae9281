#include "platform/windows/Colours.h"

namespace platform::windows {

namespace {

constexpr forms::Colour SystemBit = 0x80000000;

bool IsSystemColour(forms::Colour colour) {
    return colour != forms::colour::Transparent && (colour & SystemBit) != 0;
}

// Forms number the system's colours as the system does.
int SystemIndex(forms::Colour colour) {
    return static_cast<int>(colour & ~SystemBit);
}

bool HighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace

COLORREF ToColourRef(forms::Colour colour) {
    return IsSystemColour(colour) ? ::GetSysColor(SystemIndex(colour)) : colour & ~SystemBit;
}

HBRUSH BrushFor(HDC device, forms::Colour colour) {
    if (IsSystemColour(colour)) {
        return ::GetSysColorBrush(SystemIndex(colour));
    }
    ::SetDCBrushColor(device, ToColourRef(colour));
    return static_cast<HBRUSH>(::GetStockObject(DC_BRUSH));
}

forms::Colour BackgroundOf(const forms::Control& control) {
    for (const forms::Control* holder = &control; holder != nullptr; holder = holder->Container()) {
        if (holder->BackColor() != forms::colour::Transparent) {
            return holder->BackColor();
        }
    }
    return forms::colour::ButtonFace;
}

COLORREF TextColourOf(const forms::Control& control) {
    const forms::Colour usual = BackgroundOf(control) == forms::colour::ButtonFace
                                    ? forms::colour::ButtonText
                                    : forms::colour::WindowText;
    const bool plain = control.ForeColor() == forms::colour::WindowText;
    const bool foreign = !IsSystemColour(control.ForeColor()) && HighContrast();
    return ToColourRef(plain || foreign ? usual : control.ForeColor());
}

} // namespace platform::windows
