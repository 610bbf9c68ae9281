#include "desktop/windows/ToolTips.h"

#include "desktop/windows/Scale.h"
#include "desktop/windows/WideText.h"

namespace desktop::windows {

namespace {

/// A tip that is longer goes on in a next line; twips.
constexpr double LongestLine = 6000;

TTTOOLINFOW ToolFor(HWND control) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_SUBCLASS | TTF_IDISHWND;
    tool.hwnd = ::GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

} // namespace

void ToolTips::Set(HWND control, const std::string& text) {
    if (window_ == nullptr) {
        if (text.empty()) {
            return;
        }
        window_ = ::CreateWindowExW(
            WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0,
            ::GetAncestor(control, GA_ROOT), nullptr, ::GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, ScreenScale().ToDots(LongestLine));
    }
    TTTOOLINFOW tool = ToolFor(control);
    ::SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) {
        std::wstring wide = ToWide(text);
        tool.lpszText = wide.data();
        ::SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

} // namespace desktop::windows
