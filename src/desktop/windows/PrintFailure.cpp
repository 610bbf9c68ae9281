#include "desktop/windows/PrintFailure.h"

#include "desktop/windows/Win32.h"

#include "desktop/windows/SystemReason.h"

namespace desktop::windows {

base::RuntimeError PrinterError(const std::string& text) {
    return {base::ErrorPrinter, WithReason(text, ::GetLastError())};
}

void ThrowPrintFailure(const std::string& text) {
    const DWORD error = ::GetLastError();
    if (error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED) {
        throw PrintCalledOff{};
    }
    throw PrinterError(text);
}

} // namespace desktop::windows
