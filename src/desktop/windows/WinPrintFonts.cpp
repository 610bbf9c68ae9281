#include "desktop/windows/WinPrintFonts.h"

#include <string_view>

#include "desktop/windows/WideText.h"

namespace desktop::windows {

namespace {

bool IsInstalled(const std::string& family) {
    const std::wstring name = ToWide(family);
    if (name.empty() || name.size() >= LF_FACESIZE) {
        return false;
    }
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    const DeviceContext device(::CreateCompatibleDC(nullptr));
    bool found = false;
    const FONTENUMPROCW note = [](const LOGFONTW*, const TEXTMETRICW*, DWORD kind, LPARAM result) {
        // Bitmaps are for the screen alone.
        const bool prints = (kind & RASTER_FONTTYPE) == 0;
        *reinterpret_cast<bool*>(result) |= prints;
        return prints ? 0 : 1;
    };
    ::EnumFontFamiliesExW(device.Get(), &wanted, note, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

} // namespace

std::string WinPrintFonts::FamilyFor(const std::string& name) {
    return IsInstalled(name) ? name : Of({name, 10, false}).Family();
}

bool WinPrintFonts::HasLetter(const machine::FontSpec& font, char32_t letter) {
    return Of(font).PictureOf(letter).IsOwn;
}

machine::TextSize WinPrintFonts::MeasureText(std::string_view text, const machine::FontSpec& font) {
    GdiFont& measured = Of(font);
    return {measured.Width(text), measured.LineHeight()};
}

machine::InkBox WinPrintFonts::InkOf(char32_t letter, const machine::FontSpec& font) {
    return Of(font).PictureOf(letter).Ink;
}

} // namespace desktop::windows
