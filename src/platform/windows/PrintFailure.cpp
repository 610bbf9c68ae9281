#include "platform/windows/PrintFailure.h"

#include "platform/windows/WideText.h"
#include "platform/windows/Win32.h"

#include <iterator>

namespace platform::windows {

namespace {

/// The system's sentence for an error in the user's language; empty if it has none.
std::string SystemReason(DWORD error) {
    wchar_t text[512];
    const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring_view reason(text, length);
    while (!reason.empty() && (reason.back() == L'\r' || reason.back() == L'\n' || reason.back() == L' ')) {
        reason.remove_suffix(1);
    }
    return FromWide(reason);
}

} // namespace

RuntimeError PrinterError(const std::string& text) {
    const DWORD error = ::GetLastError();
    const std::string reason = error == ERROR_SUCCESS ? std::string() : SystemReason(error);
    return {ErrorPrinter, reason.empty() ? text : text + " " + reason};
}

void ThrowPrintFailure(const std::string& text) {
    const DWORD error = ::GetLastError();
    if (error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED) {
        throw PrintCalledOff{};
    }
    throw PrinterError(text);
}

} // namespace platform::windows
