#include "desktop/windows/WinWindowProcedures.h"

#include "desktop/windows/Win32.h"

#include "desktop/windows/WinDesktop.h"

namespace desktop::windows {

// A procedure's address takes the width of a pointer, which the call of that name has only with its suffix.
// The calls for Unicode leave the window one: through the others all its texts would pass the machine's code
// page.
machine::ProcedureAddress WinWindowProcedures::SetWindowLongA(machine::WindowHandle hWnd, int index,
                                                              machine::ProcedureAddress procedure) {
    return static_cast<machine::ProcedureAddress>(
        ::SetWindowLongPtrW(reinterpret_cast<HWND>(hWnd), index, static_cast<LONG_PTR>(procedure)));
}

std::intptr_t WinWindowProcedures::CallWindowProcA(machine::ProcedureAddress procedure,
                                                   machine::WindowHandle hWnd, std::int32_t uMsg,
                                                   std::intptr_t wParam, std::intptr_t lParam) {
    if (procedure == 0) {
        return 0;
    }
    return ::CallWindowProcW(reinterpret_cast<WNDPROC>(procedure), reinterpret_cast<HWND>(hWnd),
                             static_cast<UINT>(uMsg), static_cast<WPARAM>(wParam), lParam);
}

void WinWindowProcedures::HandlerFailed() {
    desktop_.TellCaught();
}

} // namespace desktop::windows
