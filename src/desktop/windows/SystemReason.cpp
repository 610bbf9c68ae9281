#include "desktop/windows/SystemReason.h"

#include <iterator>

#include "desktop/windows/Win32.h"

#include "desktop/windows/WideText.h"

namespace desktop::windows {

std::string SystemReason(std::uint32_t error) {
    wchar_t text[512];
    const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring_view reason(text, length);
    while (!reason.empty() && (reason.back() == L'\r' || reason.back() == L'\n' || reason.back() == L' ')) {
        reason.remove_suffix(1);
    }
    return FromWide(reason);
}

std::string WithReason(const std::string& text, std::uint32_t error) {
    const std::string reason = error == ERROR_SUCCESS ? std::string() : SystemReason(error);
    return reason.empty() ? text : text + " " + reason;
}

} // namespace desktop::windows
