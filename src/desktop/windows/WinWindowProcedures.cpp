#include "desktop/windows/WinWindowProcedures.h"

#include "desktop/windows/Win32.h"
#include "desktop/windows/WinDesktop.h"

namespace platform::windows {

// A procedure's address takes the width of a pointer, which the call of that name has only with its suffix.
// The calls for Unicode leave the window one: through the others all its texts would pass the machine's code
// page.
ProcedureAddress WinWindowProcedures::SetWindowLongA(WindowHandle hWnd, int index,
                                                     ProcedureAddress procedure) {
    return static_cast<ProcedureAddress>(
        ::SetWindowLongPtrW(reinterpret_cast<HWND>(hWnd), index, static_cast<LONG_PTR>(procedure)));
}

std::intptr_t WinWindowProcedures::CallWindowProcA(ProcedureAddress procedure, WindowHandle hWnd,
                                                   std::int32_t uMsg, std::intptr_t wParam,
                                                   std::intptr_t lParam) {
    if (procedure == 0) {
        return 0;
    }
    return ::CallWindowProcW(reinterpret_cast<WNDPROC>(procedure), reinterpret_cast<HWND>(hWnd),
                             static_cast<UINT>(uMsg), static_cast<WPARAM>(wParam), lParam);
}

void WinWindowProcedures::HandlerFailed() {
    desktop_.TellCaught();
}

} // namespace platform::windows
