#include "desktop/windows/Fonts.h"

#include <algorithm>
#include <cmath>

#include "base/Units.h"
#include "desktop/windows/DpiFunctions.h"
#include "desktop/windows/WideText.h"

namespace desktop::windows {

using base::PointsPerInch;

HFONT Fonts::Get(const forms::ControlFont& font, const Scale& scale) {
    Font& kept = fonts_[{font.Name, font.Size, font.Bold}];
    if (kept) {
        return kept.Get();
    }
    LOGFONTW wanted = MessageFont(scale.Dpi());
    if (!font.Name.empty()) {
        const std::wstring name = ToWide(font.Name);
        const auto length = std::min<std::size_t>(name.size(), LF_FACESIZE - 1);
        std::copy_n(name.data(), length, wanted.lfFaceName);
        wanted.lfFaceName[length] = 0;
        wanted.lfCharSet = DEFAULT_CHARSET;
    }
    if (font.Size > 0) {
        const double points = std::min(font.Size, machine::LargestDrawnPoints) * scale.Growth();
        wanted.lfHeight = -static_cast<LONG>(std::lround(points * scale.Dpi() / PointsPerInch));
    }
    if (font.Bold) {
        wanted.lfWeight = FW_BOLD;
    }
    kept.Reset(::CreateFontIndirectW(&wanted));
    return kept.Get();
}

int LineHeight(HFONT font) {
    const DeviceContext device(::CreateCompatibleDC(nullptr));
    const Selected selected(device.Get(), font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(device.Get(), &metrics);
    return metrics.tmHeight;
}

int TextWidth(HFONT font, const std::wstring& text) {
    const DeviceContext device(::CreateCompatibleDC(nullptr));
    const Selected selected(device.Get(), font);
    SIZE extent{};
    ::GetTextExtentPoint32W(device.Get(), text.c_str(), static_cast<int>(text.size()), &extent);
    return extent.cx;
}

} // namespace desktop::windows
