#include "desktop/windows/Colours.h"

#include "forms/Contrast.h"

namespace desktop::windows {

namespace {

constexpr forms::Colour NumberBits = 0x7FFFFFFF;

// Forms number the system's colours as the system does.
int SystemIndex(forms::Colour colour) {
    return static_cast<int>(colour & NumberBits);
}

bool HighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace

COLORREF ToColourRef(forms::Colour colour) {
    return forms::colour::IsSystem(colour) ? ::GetSysColor(SystemIndex(colour)) : colour & NumberBits;
}

HBRUSH BrushFor(HDC device, forms::Colour colour) {
    if (forms::colour::IsSystem(colour)) {
        return ::GetSysColorBrush(SystemIndex(colour));
    }
    ::SetDCBrushColor(device, ToColourRef(colour));
    return static_cast<HBRUSH>(::GetStockObject(DC_BRUSH));
}

COLORREF TextColourOf(const forms::Control& control) {
    const forms::Colour background = control.ShownBackColor();
    const forms::Colour usual =
        background == forms::colour::ButtonFace ? forms::colour::ButtonText : forms::colour::WindowText;
    const bool plain = control.ForeColor() == forms::colour::WindowText;
    const bool foreign = !forms::colour::IsSystem(control.ForeColor());
    if (plain || (foreign && HighContrast())) {
        return ToColourRef(usual);
    }
    const COLORREF wanted = ToColourRef(control.ForeColor());
    return foreign ? forms::Readable(wanted, ToColourRef(background), forms::ContrastOfText) : wanted;
}

} // namespace desktop::windows
